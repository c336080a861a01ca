#include "FieldReader.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSKeyValueCoding>

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

Outcome<QVariant> readBy(const NSFormatter &formatter, FieldType type, const QString &text)
{
    QVariant value;
    QString errorDescription;
    if (formatter.getObjectValue(&value, text, &errorDescription))
        return value;
    return Failure{reasonFor(type, errorDescription)};
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
