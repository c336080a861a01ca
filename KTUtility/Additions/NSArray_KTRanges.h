#pragma once

#include "NSArray_KTAdditions.h"

#include <QAnyStringView>
#include <QList>

#include <concepts>
#include <ranges>
#include <utility>

/// The questions of NSArray_KTAdditions.h, asked of ranges of every kind: std::vector, std::span,
/// arrays, views. The elements are listed first, in one pass; what comes out is a QList, as always.
///
/// \code
/// std::vector<Field *> fields = …;
/// Field *price = KTAdditions::objectWithValue(fields, u"Price", u"name");
/// QList<Field *> shown = KTAdditions::sortByKey(fields | std::views::take(10), u"name");
/// \endcode
namespace KTAdditions {
namespace Detail {
template<typename T>
void takeList(const QList<T> &);

/// A QList, also one of texts or variants.
template<typename Range>
concept IsList = requires(const std::remove_cvref_t<Range> &range)
{
    takeList(range);
};

/// A range that is neither a list nor a set nor a text: those have functions of their own.
template<typename Range>
concept OtherRange =
    std::ranges::input_range<Range> && !IsList<Range> && !NSSetOf<std::remove_cvref_t<Range>> &&
    !std::convertible_to<Range, QAnyStringView> && !std::convertible_to<Range, QVariant>;

template<typename Range>
concept AnyList = IsList<Range> || OtherRange<Range>;

template<typename T>
const QList<T> &listOf(const QList<T> &list)
{
    return list;
}

template<OtherRange Range>
QList<std::ranges::range_value_t<Range>> listOf(Range &&range)
{
    QList<std::ranges::range_value_t<Range>> list;
    if constexpr (std::ranges::sized_range<Range>)
        list.reserve(qsizetype(std::ranges::size(range)));
    for (auto &&element : range)
        list.append(std::forward<decltype(element)>(element));
    return list;
}
} // namespace Detail

/// The function of that name for a range.
#define KT_ASKED_OF_RANGES(function)                                                               \
    template<Detail::OtherRange Range, typename... Arguments>                                      \
    auto function(Range &&range, Arguments &&...arguments)                                         \
    {                                                                                              \
        return function(Detail::listOf(range), std::forward<Arguments>(arguments)...);             \
    }

KT_ASKED_OF_RANGES(firstObject)
KT_ASKED_OF_RANGES(singularObject)
KT_ASKED_OF_RANGES(sortByKey)
KT_ASKED_OF_RANGES(sortByOrder)
KT_ASKED_OF_RANGES(containsName)
KT_ASKED_OF_RANGES(containsObjectWithValue)
KT_ASKED_OF_RANGES(objectWithValue)
KT_ASKED_OF_RANGES(objectsWithValue)
KT_ASKED_OF_RANGES(objectsSatisfyingCondition)
KT_ASKED_OF_RANGES(arrayByPerformingSelector)
KT_ASKED_OF_RANGES(performSelector)
KT_ASKED_OF_RANGES(dictionaryIndexWithKey)
KT_ASKED_OF_RANGES(positionalDictionaryIndex)
KT_ASKED_OF_RANGES(listWithKey)
KT_ASKED_OF_RANGES(adjustOrder)
KT_ASKED_OF_RANGES(uniqueStringWithBase)

#undef KT_ASKED_OF_RANGES

/// The function of that name for two lists of which one is a range or both are.
#define KT_ASKED_OF_TWO_RANGES(function)                                                           \
    template<Detail::AnyList List, Detail::AnyList Other>                                          \
        requires(Detail::OtherRange<List> || Detail::OtherRange<Other>)                            \
    auto function(List &&list, Other &&other)                                                      \
    {                                                                                              \
        return function(Detail::listOf(list), Detail::listOf(other));                              \
    }

KT_ASKED_OF_TWO_RANGES(objectsNotInArray)
KT_ASKED_OF_TWO_RANGES(arrayByRemovingObjectsInArray)
KT_ASKED_OF_TWO_RANGES(indexOfObjects)
KT_ASKED_OF_TWO_RANGES(indexesOfExactObjects)

#undef KT_ASKED_OF_TWO_RANGES
} // namespace KTAdditions
