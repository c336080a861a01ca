#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QVariant>

#include <compare>

/// What the platform's root object answers, for values of any type.
///
/// The platform compares and describes objects in one way everywhere; Qt's QVariant converts
/// before it compares (1 equals "1" there). Collections, formats and key-value coding of this
/// framework therefore go through these functions.
namespace NSObject {
/// True for nil: an invalid variant, a null text, a null pointer. An empty text is not nil.
KTUTILITY_EXPORT bool isNil(const QVariant &value);

/// True for every type that stands for a number: integers, floating point, bool and
/// NSDecimalNumber. Characters (QChar) are not numbers.
KTUTILITY_EXPORT bool isNumber(const QVariant &value);

/// The platform's isEqual:. Numbers are equal by value whatever their types; texts by UTF-16
/// units; lists and maps by their elements; a number never equals a text; objects are equal only
/// to themselves. Two nil values are equal here, for use as keys; see isEqualTo().
KTUTILITY_EXPORT bool isEqual(const QVariant &left, const QVariant &right);

/// The platform's isEqualTo: (the comparison of scripting): as isEqual(), but nil equals nothing,
/// not even nil.
KTUTILITY_EXPORT bool isEqualTo(const QVariant &left, const QVariant &right);

/// True if both are the same object: the same pointer, or texts and data that share their
/// storage. Small values (numbers, dates) have no identity and are the same if they are equal.
KTUTILITY_EXPORT bool isIdenticalTo(const QVariant &left, const QVariant &right);

/// The platform's intValue of any value: numbers without their fraction, texts as
/// NSString::integerValue() reads them, 0 for everything else.
KTUTILITY_EXPORT qint64 integerValue(const QVariant &value);

/// The platform's boolValue of any value: numbers other than 0, texts as NSString::boolValue()
/// reads them, false for everything else.
KTUTILITY_EXPORT bool boolValue(const QVariant &value);

/// A hash that is equal for values that isEqual() calls equal.
KTUTILITY_EXPORT size_t hash(const QVariant &value);

/// The platform's compare:, as a total order for sorting: nil first, then numbers by value, then
/// texts by UTF-16 unit, then dates, then other types in the order of their type identifiers.
KTUTILITY_EXPORT std::weak_ordering compare(const QVariant &left, const QVariant &right);

/// The text that `%@` prints: texts as they are, numbers in plain digits (true is "1"), dates as
/// "YYYY-MM-DD HH:MM:SS ±HHMM" in their own zone, data in hexadecimal in angle brackets, lists
/// and maps in the platform's form over several lines, objects by their invokable `description`
/// or as `<Class 0xaddress>`; nil is "(null)".
KTUTILITY_EXPORT QString description(const QVariant &value);
} // namespace NSObject

/// The null object: stands for nil inside collections that cannot hold nil.
KTUTILITY_EXPORT QVariant NSNull();
/// True for the null object.
KTUTILITY_EXPORT bool isNSNull(const QVariant &value);
