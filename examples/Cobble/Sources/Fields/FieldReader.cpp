#include "FieldReader.h"

#include "Text/Reasons.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDateTimeFormatter>
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

/// Formatters that read common forms say it in a sentence; of others, the type says enough.
bool saysWhy(const NSFormatter &formatter)
{
    const auto *const reading = qobject_cast<const KTReadingFormatter *>(&formatter);
    return reading && reading->readsCommonForms();
}

QString reasonFor(FieldType type, const QString &errorDescription)
{
    if (errorDescription == KTNumberFormatter::unevenGroupsDescription())
        return Reasons::tr("its separators do not stand where groups end or the fraction begins");
    if (errorDescription == KTColumnReading::contradictionDescription())
        return Reasons::tr("it contradicts how the other values of its column are read");
    switch (type) {
    case FieldType::Number:
        return errorDescription.isEmpty() ? Reasons::tr("there is more than a number")
                                          : Reasons::tr("it is no number");
    case FieldType::Currency:
        return Reasons::tr("it is no amount in this currency");
    case FieldType::Duration:
        return errorDescription;
    default:
        return Reasons::tr("it is no date or time");
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

/// What is found out of all values of a column of a type.
std::optional<KTColumnReading::Kind> columnKindOf(FieldType type)
{
    switch (type) {
    case FieldType::Date:
    case FieldType::DateTime:
        return KTColumnReading::Dates;
    case FieldType::Number:
        return KTColumnReading::Numbers;
    case FieldType::Currency:
        return KTColumnReading::Amounts;
    case FieldType::Duration:
        return KTColumnReading::Durations;
    default:
        return std::nullopt;
    }
}

NSLocale localeOf(const NSFormatter *formatter)
{
    if (const auto *const numbers = qobject_cast<const KTNumberFormatter *>(formatter))
        return numbers->locale();
    const auto *const dates = qobject_cast<const KTDateTimeFormatter *>(formatter);
    return dates ? dates->locale() : NSLocale::currentLocale();
}
} // namespace

FieldReader::FieldReader(FieldType type, const std::optional<NSLocale> &locale)
    : _type(type), _format(FieldFormat::of(type, locale))
{
}

void FieldReader::setReadsCommonForms(bool readsCommonForms) const
{
    if (auto *const reading = qobject_cast<KTReadingFormatter *>(formatter()))
        reading->setReadsCommonForms(readsCommonForms);
}

std::optional<KTColumnReading> FieldReader::newColumn() const
{
    const auto kind = columnKindOf(_type);
    return kind ? std::optional(KTColumnReading(*kind, localeOf(formatter()))) : std::nullopt;
}

Outcome<QVariant> FieldReader::readOnce(const QString &text, bool isInColumn) const
{
    QVariant value;
    QString reason;
    const bool isRead = isInColumn && _column
                            ? _column->getObjectValue(*formatter(), &value, text, &reason)
                            : formatter()->getObjectValue(&value, text, &reason);
    if (isRead)
        return value;
    const bool isReason = saysWhy(*formatter()) && !reason.isEmpty();
    return Failure{isReason ? reason : reasonFor(_type, reason)};
}

/// Again without the marks that nobody sees, if it has to be.
Outcome<QVariant> FieldReader::readBare(const QString &text, bool isInColumn) const
{
    Outcome<QVariant> value = readOnce(text, isInColumn);
    if (value || (_type != FieldType::Number && _type != FieldType::Currency))
        return value;
    const QString plain = withoutOuterMarks(text);
    return plain == text ? value : readOnce(plain, isInColumn);
}

Outcome<QVariant> FieldReader::read(const QString &text, bool isImported) const
{
    if (!formatter())
        return QVariant(text);
    if (!isImported)
        return readBare(text, false);
    const ImportBracket bracket(_format, text);
    return readBare(text, true);
}

Outcome<QVariant> FieldReader::readTyped(const QString &text) const
{
    if (text.isEmpty())
        return QVariant();
    Outcome<QVariant> value = read(text);
    if (!value && value.reason().isEmpty())
        return Failure{Reasons::tr("it cannot be read")};
    return value;
}

KTReading FieldReader::reading() const
{
    const auto *const reading = qobject_cast<const KTReadingFormatter *>(formatter());
    return reading ? reading->reading() : KTReading();
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
