#include "FieldSummary.h"

#include <KTUtility/NSNumberFormatter>
#include <KTUtility/NSObject>

namespace {
constexpr unsigned MostFractionDigits = 6;

/// Results that decimals cannot hold are not-a-number instead of an exception.
const NSDecimalNumberHandler &quietly()
{
    static const NSDecimalNumberHandler handler(NSRoundPlain, NSDecimalNoScale, false, false, false,
                                                false);
    return handler;
}

bool sumsNumbers(FieldType type)
{
    return type == FieldType::Number || type == FieldType::Currency || type == FieldType::Duration;
}
} // namespace

QString FieldSummary::numberText(const NSDecimalNumber &number, const FieldReader &reader)
{
    if (number.isNaN())
        return tr("too large");
    const QVariant value = QVariant::fromValue(number);
    const QString text = RecordTexts::textOf(reader, value);
    if (reader.type() != FieldType::Number ||
        NSObject::isEqual(reader.read(text).valueOr({}), value))
        return text;
    // The field shows fewer digits.
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    formatter.setMaximumFractionDigits(MostFractionDigits);
    return formatter.stringForObjectValue(value);
}

void FieldSummary::add(const QVariant &value)
{
    if (value.metaType() == QMetaType::fromType<QDateTime>())
        addDate(value.toDateTime());
    else if (NSObject::isNumber(value))
        addNumber(NSDecimalNumber::decimalNumberWithNumber(value));
}

void FieldSummary::addNumber(const NSDecimalNumber &number)
{
    if (number.isNaN())
        return;
    _least = _numbers == 0 ? number : qMin(_least, number);
    _most = _numbers == 0 ? number : qMax(_most, number);
    _sum = _sum.decimalNumberByAdding(number, &quietly());
    ++_numbers;
}

void FieldSummary::addDate(const QDateTime &date)
{
    _first = _first.isValid() ? qMin(_first, date) : date;
    _last = _last.isValid() ? qMax(_last, date) : date;
}

NSDecimalNumber FieldSummary::average() const
{
    return _sum.decimalNumberByDividingBy(NSDecimalNumber(qMax<qint64>(_numbers, 1)), &quietly());
}

QString FieldSummary::text(const FieldReader &reader) const
{
    const auto shown = [&reader](const QVariant &value) {
        return RecordTexts::textOf(reader, value);
    };
    const auto number = [&reader](const NSDecimalNumber &value) {
        return numberText(value, reader);
    };
    if (sumsNumbers(reader.type()) && _numbers > 0)
        return tr("Sum %1 · Average %2 · Least %3 · Most %4")
            .arg(number(_sum), number(average()), number(_least), number(_most));
    if (reader.formatter() && _first.isValid())
        return tr("From %1 to %2").arg(shown(_first), shown(_last));
    return {};
}
