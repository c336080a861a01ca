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

/// True for every type that stands for a number: integers, floating point, bool, enumerations and
/// NSDecimalNumber. Characters (QChar) are not numbers.
KTUTILITY_EXPORT bool isNumber(const QVariant &value);

/// The platform's isEqual:. Numbers are equal by value whatever their types; texts by UTF-16
/// units; lists and maps by their elements; points and sizes without a tolerance; a number never
/// equals a text; objects are equal only to themselves. Two nil values are equal here, for use as keys; see isEqualTo().
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

/// A hash that is equal for values that isEqual() calls equal, so that sets and indexes of values
/// of any type take a time that grows with their number only.
///
/// A type that this framework and Qt know nothing of is hashed by its properties (gadgets), its
/// text, or what it writes to a QDebug. Where values count as equal that differ in these, tell its
/// hash by registerHash().
KTUTILITY_EXPORT size_t hash(const QVariant &value);

/// Sets the hash of a type from now on; before the first value of it is put into a set.
/// \param hash is given the address of a value.
KTUTILITY_EXPORT void registerHash(QMetaType type, size_t (*hash)(const void *value));

/// The same by the qHash() of the type.
/// \code
/// NSObject::registerHash<Account>();
/// \endcode
template<typename T>
void registerHash()
{
    registerHash(QMetaType::fromType<T>(),
                 [](const void *value) -> size_t { return qHash(*static_cast<const T *>(value)); });
}

/// The platform's compare:, as a total order for sorting: nil first, then numbers by value, then
/// texts by UTF-16 unit, then dates, data, lists by their elements, maps by their keys and then by
/// their values, then other types in the order of their type identifiers.
KTUTILITY_EXPORT std::weak_ordering compare(const QVariant &left, const QVariant &right);

/// The text that `%@` prints: texts as they are, whole numbers in digits (true is "1"), doubles as
/// `%.16g` and floats as `%.7g` in every locale (100000, 0.0001, 1e+16), dates as
/// "YYYY-MM-DD HH:MM:SS ±HHMM" in their own zone, data in hexadecimal in angle brackets, lists,
/// sets and maps of any type in the platform's form over several lines, objects by their invokable
/// method or property `description` or as `<Class: 0xaddress>`; nil is "(null)". Other values print
/// as their text, what they write to a QDebug, their properties (`<Point x = 1, y = 2>`), or the
/// name of their type in angle brackets.
KTUTILITY_EXPORT QString description(const QVariant &value);
} // namespace NSObject

/// The null object: stands for nil inside collections that cannot hold nil.
KTUTILITY_EXPORT QVariant NSNull();
/// True for the null object.
KTUTILITY_EXPORT bool isNSNull(const QVariant &value);
