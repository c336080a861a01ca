#pragma once

// Private to the library. What a QVariant holds, for everybody who treats numbers, texts and
// collections of whatever type alike: comparing, describing, printing by format, writing property
// lists.

#include <KTUtility/KTUtilityExport.h>

#include <QVariant>

namespace KTPrivate {
/// The kinds of values that the platform distinguishes. The order is that in which
/// NSObject::compare() sorts values of different kinds.
enum class VariantKind {
    Nil,      ///< No value.
    Bool,     ///< A number that is true or false.
    Signed,   ///< A whole number that may be below zero; char is one, whatever its sign; so is an
              ///< enumeration.
    Unsigned, ///< A whole number that is not below zero, also an enumeration of such.
    Double,   ///< A floating-point number.
    Decimal,  ///< An NSDecimalNumber.
    Text,     ///< A QString, also a null one.
    Date,     ///< A QDateTime.
    Data,     ///< A QByteArray.
    List,     ///< A QVariantList or QStringList.
    Map,      ///< A QVariantMap or QVariantHash.
    Object,   ///< A pointer to a QObject, also a null one.
    Other,    ///< Anything else: characters (QChar, char16_t, char32_t), gadgets.
};

/// What a value holds; by its type alone.
KTUTILITY_EXPORT VariantKind kindOf(const QVariant &value);

/// Whether a kind is one of numbers.
constexpr bool isNumeric(VariantKind kind)
{
    return kind >= VariantKind::Bool && kind <= VariantKind::Decimal;
}
} // namespace KTPrivate
