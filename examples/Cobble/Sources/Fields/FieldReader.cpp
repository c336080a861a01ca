#include "FieldReader.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSKeyValueCoding>

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
/// The import hooks around one value, however reading it ends.
class ImportBracket
{
public:
    ImportBracket(const FieldFormat &format, const QString &text) : _format(format), _text(text)
    {
        if (_format.willImport)
            _format.willImport(_text);
    }
    ~ImportBracket()
    {
        if (_format.didImport)
            _format.didImport(_text);
    }
    ImportBracket(const ImportBracket &) = delete;
    ImportBracket &operator=(const ImportBracket &) = delete;

private:
    const FieldFormat &_format;
    const QString &_text;
};

QString reasonFor(FieldType type, const QString &errorDescription)
{
    if (errorDescription == KTNumberFormatter::unevenGroupsDescription())
        return u"its separators do not stand where groups end or the fraction begins"_s;
    switch (type) {
    case FieldType::Number:
        return errorDescription.isEmpty() ? u"there is more than a number"_s : u"it is no number"_s;
    case FieldType::Currency:
        return u"it is no amount in this currency"_s;
    case FieldType::Duration:
        return errorDescription;
    default:
        return u"it is no date or time"_s;
    }
}

/// A text without the marks of direction at its ends, which nobody sees ("12" and U+200F).
QString withoutOuterMarks(const QString &text)
{
    static const QRegularExpression marks(uR"((*UCP)\A[\s\x{202A}-\x{202E}\x{2066}-\x{2069}]+|)"
                                          uR"([\s\x{061C}\x{200E}\x{200F}\x{202A}-\x{202E})"
                                          uR"(\x{2066}-\x{2069}]+\z)"_s);
    return QString(text).remove(marks);
}

Outcome<QVariant> readOnceBy(const NSFormatter &formatter, FieldType type, const QString &text)
{
    QVariant value;
    QString errorDescription;
    if (formatter.getObjectValue(&value, text, &errorDescription))
        return value;
    return Failure{reasonFor(type, errorDescription)};
}

Outcome<QVariant> readBy(const NSFormatter &formatter, FieldType type, const QString &text)
{
    Outcome<QVariant> value = readOnceBy(formatter, type, text);
    if (value || (type != FieldType::Number && type != FieldType::Currency))
        return value;
    const QString plain = withoutOuterMarks(text);
    return plain == text ? value : readOnceBy(formatter, type, plain);
}
} // namespace

FieldReader::FieldReader(FieldType type) : _type(type), _format(FieldFormat::of(type)) {}

Outcome<QVariant> FieldReader::read(const QString &text, bool isImported) const
{
    if (!formatter())
        return QVariant(text);
    if (!isImported)
        return readBy(*formatter(), _type, text);
    const ImportBracket bracket(_format, text);
    return readBy(*formatter(), _type, text);
}

Outcome<QVariant> FieldReader::readTyped(const QString &text) const
{
    if (text.isEmpty())
        return QVariant();
    Outcome<QVariant> value = read(text);
    if (!value && value.reason().isEmpty())
        return Failure{u"it cannot be read"_s};
    return value;
}

QString FieldReader::recentPattern() const
{
    return _format.recentPattern ? _format.recentPattern() : QString();
}

QString FieldReader::currencyType() const
{
    if (_type != FieldType::Currency)
        return {};
    return NSKeyValueCoding::valueForKey(formatter(), kKTFieldOption_currencyType).toString();
}
