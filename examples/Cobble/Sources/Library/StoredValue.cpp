#include "StoredValue.h"

#include "Text/ISODateParts.h"
#include "Text/ISODateText.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QDateTime>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {
/// So many digits survive the way through a double.
constexpr qsizetype DigitsOfDouble = 15;
/// So many fit into 64 bits, whatever they are.
constexpr qsizetype DigitsOfInteger = 18;

qsizetype digitCount(const QString &digits)
{
    return std::count_if(digits.begin(), digits.end(), [](QChar unit) { return unit.isDigit(); });
}

QVariant forNumber(const QVariant &number)
{
    const NSDecimalNumber decimal = NSDecimalNumber::decimalNumberWithNumber(number);
    const QString digits = decimal.description();
    const qsizetype count = digitCount(digits);
    bool isWhole = false;
    const qlonglong whole = digits.toLongLong(&isWhole);
    if (isWhole && count <= DigitsOfInteger)
        return whole;
    const bool isDouble = !decimal.isNaN() && count <= DigitsOfDouble;
    return isDouble ? QVariant(decimal.doubleValue()) : QVariant(digits);
}

QVariant decimalIn(const QString &digits)
{
    static const QRegularExpression form(uR"(\A-?\d+(\.\d+)?\z)"_s);
    if (!form.match(digits).hasMatch())
        return {};
    const NSDecimalNumber number = NSDecimalNumber::decimalNumberWithString(digits);
    return number.isNaN() || number.description() != digits ? QVariant()
                                                            : QVariant::fromValue(number);
}

/// What a text in a field of numbers is: a number that is too long for SQLite, else what was typed.
QVariant numberInText(const QString &text)
{
    const QVariant number = digitCount(text) > DigitsOfDouble ? decimalIn(text) : QVariant();
    return number.isValid() ? number : QVariant(text);
}

/// The number with the fewest digits that a double stands for. Of those with up to 15 digits there is
/// one at most, whatever way it is found.
NSDecimalNumber shortestDecimalOf(double number)
{
    constexpr double Limit = 1e15;
    double power = 1;
    for (int places = 0; places <= 4; ++places, power *= 10) {
        const double digits = std::round(std::abs(number) * power);
        if (digits < Limit && digits / power == std::abs(number))
            return NSDecimalNumber::decimalNumberWithMantissa(quint64(digits), -places, number < 0);
    }
    return NSDecimalNumber::decimalNumberWithString(
        QString::number(number, 'f', QLocale::FloatingPointShortest));
}

QVariant numberFrom(const QVariant &stored)
{
    switch (stored.typeId()) {
    case QMetaType::QString:
        return numberInText(stored.toString());
    case QMetaType::Double:
        return QVariant::fromValue(shortestDecimalOf(stored.toDouble()));
    case QMetaType::LongLong:
        return QVariant::fromValue(NSDecimalNumber(stored.toLongLong()));
    default:
        return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(stored.toString()));
    }
}

QVariant dateFrom(const QVariant &stored)
{
    const QString text = stored.toString();
    if (const std::optional<QDateTime> date = ISODate::dateIn(text))
        return *date;
    static const QRegularExpression form(
        uR"(\A-?\d{4,}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?(Z|[+-]\d\d:\d\d)\z)"_s);
    const QDateTime date = QDateTime::fromString(text, Qt::ISODateWithMs);
    return form.match(text).hasMatch() && date.isValid() ? QVariant(date) : QVariant(text);
}
} // namespace

QVariant StoredValue::forDatabase(const QVariant &value)
{
    if (NSObject::isNil(value))
        return {};
    if (NSObject::isNumber(value))
        return forNumber(value);
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        return isoDateText(value.toDateTime());
    return value.toString();
}

QVariant StoredValue::fromDatabase(FieldType type, const QVariant &stored)
{
    if (stored.isNull())
        return {};
    switch (type) {
    case FieldType::Number:
    case FieldType::Currency:
    case FieldType::Duration:
        return numberFrom(stored);
    case FieldType::Time:
    case FieldType::Date:
    case FieldType::DateTime:
        return dateFrom(stored);
    default:
        return stored.toString();
    }
}
