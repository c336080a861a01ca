#include "PlainColumn.h"

#include "FieldReader.h"

#include <KTUtility/KTLogger>

#include <algorithm>
#include <array>

namespace {
/// A column with more is not of texts that are alike.
constexpr qsizetype MostForms = 256;

/// Whether the log is to show how each text is read.
bool isLogged()
{
    constexpr int Level = 4;
    const std::array components{kLog_FormattersNumbers, kLog_FormattersCurrency,
                                kLog_FormattersDateTimes, kLog_FormattersPhoneNumbers};
    return std::any_of(components.begin(), components.end(), [](const QString &component) {
        return KTLogger::sharedLogger()->shouldLogComponent(component, Level);
    });
}

bool areSameValues(const QVariant &one, const QVariant &other)
{
    return one.metaType() == other.metaType() && one == other;
}
} // namespace

PlainColumn::PlainColumn(const FieldReader &reader)
    : _reader(reader)
    // Phone numbers are kept as they are typed.
    , _takesAll(reader.type() == FieldType::Phone && !isLogged())
    , _ways(isLogged() ? nullptr : PlainWays::of(reader))
    , _recentPattern(reader.recentPattern())
{
}

QVariant PlainColumn::valueOf(const QString &text)
{
    _form = nullptr;
    if (_takesAll)
        return text;
    if (!_ways)
        return {};
    _text = PlainText(text);
    _form = _text.isPlain() ? formOf(_text) : nullptr;
    return _form && isSettled(*_form) ? agreedValue(*_form) : QVariant();
}

/// Null for one too many.
PlainColumn::Form *PlainColumn::formOf(const PlainText &text)
{
    const int count = _ways->countFor(text);
    if (count == 0)
        return nullptr;
    QHash<QString, Form> &forms = _forms[_ways->kindOf(text)];
    const QStringView key = text.form();
    const auto known = forms.find(QString::fromRawData(key.data(), key.size()));
    if (known != forms.end() || forms.size() >= MostForms)
        return known != forms.end() ? &*known : nullptr;
    Form &form = forms[key.toString()];
    for (int way = 0; way < count; ++way)
        form.ways |= _ways->isPossible(text, way) ? 1U << way : 0;
    return &form;
}

/// What took other texts meanwhile might take this one, too.
bool PlainColumn::isSettled(const Form &form) const
{
    return form.isTaken && (!form.isByPattern || form.pattern == _recentPattern);
}

/// Invalid unless it is the same in all ways that are left.
QVariant PlainColumn::agreedValue(const Form &form)
{
    QVariant value;
    for (int way = 0; form.ways >> way != 0; ++way) {
        if ((form.ways >> way & 1U) == 0)
            continue;
        const QVariant other = _ways->valueOf(_text, way);
        if (!other.isValid() || (value.isValid() && !areSameValues(value, other)))
            return {};
        value = other;
    }
    return value;
}

void PlainColumn::learn(const QVariant &stored)
{
    if (!_ways)
        return;
    _recentPattern = _reader.recentPattern();
    if (!_form)
        return;
    if (stored.isValid()) {
        _form->isByPattern = _reader.reading().form == u"pattern";
        _form->pattern = _recentPattern;
        _ways->note(_text, stored);
    }
    dropWays(_form, stored);
}

/// Ways in which the text would be another value, or one at all where the reader refuses it.
void PlainColumn::dropWays(Form *form, const QVariant &stored)
{
    for (int way = 0; form->ways >> way != 0; ++way) {
        const bool isLeft = form->ways >> way & 1U;
        const QVariant value = isLeft ? _ways->valueOf(_text, way) : QVariant();
        if (!value.isValid())
            continue;
        const bool isTaken = areSameValues(value, stored);
        form->isTaken = form->isTaken || isTaken;
        form->ways &= isTaken ? ~0U : ~(1U << way);
    }
}
