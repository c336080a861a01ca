#pragma once

#include <KTUtility/Platform/Keys/KTText.h>
#include <KTUtility/Platform/Keys/KTValue.h>
#include <KTUtility/Platform/Keys/KeyPath.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Queries/ValueMatcher.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QVariant>

#include <ranges>
#include <type_traits>
#include <utility>

/// Questions by key as views of C++20: nothing is asked before the view is walked, and no more than
/// is walked. They stand behind a range of what answers keys (see KeyValueCodable) and before every
/// view of the standard.
///
/// \code
/// for (Field *field : fields | KT::whereKey("isVisible") | std::views::take(3))
///     show(field);
/// const auto names = fields | KT::valuesForKey<QString>("name");
/// \endcode
///
/// The range is not copied: it has to outlive its views, unless it is moved into them. Keys may be
/// key paths. An element without the key raises NSUndefinedKeyException while it is walked to. A view
/// is for one thread.
namespace KT {
namespace Detail {
/// What makes a view of a range.
template<typename Function>
class Adaptor
{
public:
    explicit Adaptor(Function function) : _function(std::move(function)) {}

    template<std::ranges::viewable_range Range>
    friend auto operator|(Range &&range, const Adaptor &adaptor)
    {
        // A list that is not const would be copied as soon as it is walked, if it is shared.
        using Value = std::remove_reference_t<Range>;
        if constexpr (std::is_lvalue_reference_v<Range> && !std::ranges::view<Value> &&
                      std::ranges::range<const Value>)
            return adaptor._function(std::views::all(std::as_const(range)));
        else
            return adaptor._function(std::views::all(std::forward<Range>(range)));
    }

private:
    Function _function;
};

/// Reads the key of one element after the other.
class KeyReader
{
public:
    explicit KeyReader(const KTText &key) : _path(key) {}

    template<typename Element>
    const QVariant &operator()(const Element &element) const
    {
        return _path.read(KTPrivate::KeyValueTargets::target(element));
    }

private:
    // What it remembers of the last element's class.
    mutable KTPrivate::KeyPath _path;
};
} // namespace Detail

/// The elements whose value for a key is true.
inline auto whereKey(const KTText &key)
{
    const auto isTrue = [read = Detail::KeyReader(key)](const auto &element) {
        return NSObject::boolValue(read(element));
    };
    return Detail::Adaptor(
        [isTrue](auto range) { return std::views::filter(std::move(range), isTrue); });
}

/// The elements whose value for a key equals another, as in KTAdditions::objectsWithValue().
inline auto whereKey(const KTText &key, const KTValue &value)
{
    const auto equals = [read = Detail::KeyReader(key), matcher = KTPrivate::ValueMatcher(value)](
                            const auto &element) { return matcher.matches(read(element)); };
    return Detail::Adaptor(
        [equals](auto range) { return std::views::filter(std::move(range), equals); });
}

/// The value of each element for a key: as it is, or converted as variants do.
template<typename Value = QVariant>
auto valuesForKey(const KTText &key)
{
    const auto valueOf = [read = Detail::KeyReader(key)](const auto &element) -> Value {
        if constexpr (std::is_same_v<Value, QVariant>)
            return read(element);
        else
            return read(element).template value<Value>();
    };
    return Detail::Adaptor(
        [valueOf](auto range) { return std::views::transform(std::move(range), valueOf); });
}
} // namespace KT
