#include "ValueConversion_p.h"

#include "NSOptionalType.h"
#include <KTUtility/Platform/Values/NSDecimalNumber.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/VariantKind_p.h>

using namespace KTPrivate;

namespace {
double doubleOf(const QVariant &number)
{
    return kindOf(number) == VariantKind::Decimal ? number.value<NSDecimalNumber>().doubleValue()
                                                  : number.toDouble();
}

/// A number without its fraction, in 64 bits. Those of unsigned numbers beyond the signed ones are
/// the same.
QVariant integerOf(const QVariant &number)
{
    if (kindOf(number) == VariantKind::Unsigned)
        return number.toULongLong();
    const double value = doubleOf(number);
    if (kindOf(number) == VariantKind::Double && value >= 0x1p63 && value < 0x1p64)
        return quint64(value);
    return NSObject::integerValue(number);
}

QVariant decimalOf(const QVariant &number)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithNumber(number));
}

QVariant convertedNumber(const QVariant &number, QMetaType type)
{
    switch (kindOf(QVariant(type))) {
    case VariantKind::Bool:
        return NSObject::boolValue(number);
    case VariantKind::Double:
        return doubleOf(number);
    case VariantKind::Decimal:
        return decimalOf(number);
    default:
        return integerOf(number);
    }
}

/// An optional of what a value becomes as the type that it holds.
std::optional<QVariant> convertedOptional(const QVariant &value, const NSOptionalType &type)
{
    const std::optional<QVariant> held =
        NSObject::isNil(value) ? QVariant() : convertedValue(value, type.valueType());
    return held ? std::optional(type.optional(*held)) : std::nullopt;
}
} // namespace

std::optional<QVariant> KTPrivate::convertedValue(const QVariant &value, QMetaType type)
{
    if (value.metaType() == type)
        return value;
    QVariant result = value;
    if (NSObject::isNumber(value) && NSObject::isNumber(QVariant(type)))
        result = convertedNumber(value, type);
    else if (type.id() == QMetaType::Bool && kindOf(value) == VariantKind::Text)
        result = NSObject::boolValue(value);
    else if (const NSOptionalType *const held = NSOptionalType::of(type))
        return convertedOptional(value, *held);
    else if (const NSOptionalType *const holder = NSOptionalType::of(value.metaType()))
        return convertedValue(holder->value(value.constData()), type);
    if (result.metaType() == type || result.convert(type))
        return result;
    return std::nullopt;
}
