#include "FieldReader.h"

#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/KTDurationFormatter>

using namespace Qt::StringLiterals;

namespace {
/// The import hooks around one value, however reading it ends.
class ImportBracket
{
public:
    ImportBracket(NSFormatter *formatter, const QString &text, bool isImported)
        : _formatter(isImported ? qobject_cast<KTDurationFormatter *>(formatter) : nullptr)
        , _text(text)
    {
        if (_formatter)
            _formatter->willFormatString(_text, QVariant());
    }
    ~ImportBracket()
    {
        if (_formatter)
            _formatter->didFormatString(_text, QVariant());
    }
    ImportBracket(const ImportBracket &) = delete;
    ImportBracket &operator=(const ImportBracket &) = delete;

private:
    KTDurationFormatter *_formatter;
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

QString patternOf(const NSFormatter *formatter)
{
    const auto *const dates = qobject_cast<const KTDateTimeFormatter *>(formatter);
    const NSDateFormatter *const recent = dates ? dates->mostRecentFormatter() : nullptr;
    return recent ? recent->dateFormat() : QString();
}
} // namespace

FieldReader::FieldReader(FieldType type) : _type(type), _formatter(FieldTypes::formatterFor(type))
{
}

FieldReading FieldReader::read(const QString &text, bool isImported) const
{
    FieldReading reading;
    if (!_formatter)
        return {true, text, {}, {}};
    const ImportBracket bracket(_formatter.get(), text, isImported);
    QString errorDescription;
    reading.isRead = _formatter->getObjectValue(&reading.value, text, &errorDescription);
    if (reading.isRead)
        reading.pattern = patternOf(_formatter.get());
    else
        reading.reason = reasonFor(_type, errorDescription);
    return reading;
}

FieldReading FieldReader::readTyped(const QString &text) const
{
    if (text.isEmpty())
        return {true, {}, {}, {}};
    FieldReading reading = read(text);
    if (!reading.isRead && reading.reason.isEmpty())
        reading.reason = u"it cannot be read"_s;
    return reading;
}
