#pragma once

#include "NSBoxed.h"

#include <QVariant>

/// A value as an argument, of whatever type: functions that take one take everything that NSBoxed()
/// knows, and a QVariant without copying it. Only for parameters: it refers to what it was made
/// from.
///
/// \code
/// KTAdditions::objectWithValue(fields, library, u"library");     // a pointer
/// KTAdditions::objectWithValue(fields, Kind::Text, u"kind");     // an enumeration
/// KTAdditions::objectWithValue(fields, u"Price", u"name");       // a text
/// \endcode
class KTValue
{
public:
    /// nil.
    KTValue() = default;
    KTValue(const QVariant &value) : _value(&value) {}
    template<typename T>
        requires(!std::same_as<T, QVariant> && !std::same_as<T, KTValue>)
    KTValue(const T &value) : _boxed(NSBoxed(value)) {}
    KTValue(const KTValue &) = delete;
    KTValue &operator=(const KTValue &) = delete;

    /// The same as variant().
    operator const QVariant &() const { return *_value; }
    /// The value; it lives as long as what this was made from.
    const QVariant &variant() const { return *_value; }

private:
    QVariant _boxed;
    const QVariant *_value = &_boxed;
};
