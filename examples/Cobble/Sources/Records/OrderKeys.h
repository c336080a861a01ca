#pragma once

#include "TextOrder.h"

#include <KTUtility/NSDecimalNumber>

#include <QVariant>

#include <unordered_map>
#include <vector>

/// The values that many records have of a field, in a form that is small and quickly compared. Their
/// order is that of ValueOrder.
///
/// \code
/// OrderKeys keys(u"de_DE"_s);
/// while (records.next())
///     keys.append(records.value(field));
/// keys.compare(0, 1) < 0; // the first record's value comes first
/// \endcode
class OrderKeys
{
public:
    /// \param locale the identifier of the one that orders texts.
    explicit OrderKeys(const QString &locale) : _textOrder(locale) {}

    /// \param value as StoredValue::fromDatabase() has it: nil, a decimal number, a text or a date.
    void append(const QVariant &value);
    size_t size() const { return _kinds.size(); }
    std::weak_ordering compare(size_t left, size_t right) const;

private:
    /// In the order in which they stand.
    enum class Kind : quint8 { Nil, Number, Text, Date };
    /// What is compared of a value of its kind.
    union Key
    {
        double number;
        qint64 instant;
        qint64 place; ///< in the texts' keys
    };

    void append(Kind kind, Key key);
    Key keyOf(const NSDecimalNumber &number);
    Key keyOf(const QString &text);
    NSDecimalNumber exact(size_t index) const;
    std::weak_ordering compareNumbers(size_t left, size_t right) const;

    TextOrder _textOrder;
    std::vector<Kind> _kinds;
    std::vector<Key> _keys;
    QByteArray _textKeys;
    /// The numbers that have more digits than a double.
    std::unordered_map<size_t, NSDecimalNumber> _longNumbers;
};
