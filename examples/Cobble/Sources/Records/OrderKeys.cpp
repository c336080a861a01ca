#include "OrderKeys.h"

#include <KTUtility/NSObject>

#include <QDateTime>

#include <cmath>
#include <cstring>

namespace {
/// So many digits survive the way through a double, a sign and a point beside them.
constexpr qsizetype UnitsOfDouble = 15;
} // namespace

void OrderKeys::append(Kind kind, Key key)
{
    _kinds.push_back(kind);
    _keys.push_back(key);
}

void OrderKeys::append(const QVariant &value)
{
    if (NSObject::isNil(value))
        append(Kind::Nil, Key{.instant = 0});
    else if (value.metaType() == QMetaType::fromType<QDateTime>())
        append(Kind::Date, Key{.instant = value.toDateTime().toMSecsSinceEpoch()});
    else if (NSObject::isNumber(value))
        append(Kind::Number, keyOf(NSDecimalNumber::decimalNumberWithNumber(value)));
    else
        append(Kind::Text, keyOf(value.toString()));
}

OrderKeys::Key OrderKeys::keyOf(const NSDecimalNumber &number)
{
    if (number.description().size() > UnitsOfDouble)
        _longNumbers.emplace(_keys.size(), number);
    return {.number = number.isNaN() ? std::nan("") : number.doubleValue()};
}

OrderKeys::Key OrderKeys::keyOf(const QString &text)
{
    const Key key{.place = _textKeys.size()};
    _textOrder.appendKey(text, &_textKeys);
    return key;
}

NSDecimalNumber OrderKeys::exact(size_t index) const
{
    const auto found = _longNumbers.find(index);
    if (found != _longNumbers.end())
        return found->second;
    return NSDecimalNumber::decimalNumberWithString(
        QString::number(_keys[index].number, 'f', QLocale::FloatingPointShortest));
}

/// NaN comes behind every number.
std::weak_ordering OrderKeys::compareNumbers(size_t left, size_t right) const
{
    const double first = _keys[left].number;
    const double second = _keys[right].number;
    if (std::isnan(first) || std::isnan(second))
        return std::isnan(first) <=> std::isnan(second);
    if (first != second)
        return first < second ? std::weak_ordering::less : std::weak_ordering::greater;
    const bool mayDiffer = _longNumbers.contains(left) || _longNumbers.contains(right);
    return mayDiffer ? std::weak_ordering(exact(left) <=> exact(right))
                     : std::weak_ordering::equivalent;
}

std::weak_ordering OrderKeys::compare(size_t left, size_t right) const
{
    if (_kinds[left] != _kinds[right])
        return _kinds[left] <=> _kinds[right];
    switch (_kinds[left]) {
    case Kind::Nil:
        return std::weak_ordering::equivalent;
    case Kind::Number:
        return compareNumbers(left, right);
    case Kind::Date:
        return _keys[left].instant <=> _keys[right].instant;
    case Kind::Text:
        break;
    }
    return std::strcmp(_textKeys.constData() + _keys[left].place,
                       _textKeys.constData() + _keys[right].place) <=> 0;
}
