#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

namespace KTPrivate {
template<typename Signature>
class SharedFunction;

/// A function, function object or lambda that is cheap to copy and can be compared: copies of one
/// are equal, and so are two of the same plain function.
///
/// \code
/// const SharedFunction<bool(int)> isSmall = [limit](int value) { return value < limit; };
/// \endcode
template<typename Result, typename... Arguments>
class SharedFunction<Result(Arguments...)>
{
public:
    /// A plain function.
    using Pointer = Result (*)(Arguments...);

    /// None.
    SharedFunction() = default;
    SharedFunction(std::nullptr_t) {}
    template<typename Function>
        requires(!std::same_as<Function, SharedFunction> &&
                 std::is_invocable_r_v<Result, const Function &, Arguments...>)
    SharedFunction(Function function)
    {
        if constexpr (std::convertible_to<Function, Pointer>)
            _pointer = function;
        else
            _function =
                std::make_shared<const std::function<Result(Arguments...)>>(std::move(function));
    }

    /// Whether there is one.
    explicit operator bool() const { return _pointer || _function; }
    /// Calls it.
    Result operator()(Arguments... arguments) const
    {
        return _pointer ? _pointer(arguments...) : (*_function)(arguments...);
    }

    friend bool operator==(const SharedFunction &, const SharedFunction &) = default;

private:
    Pointer _pointer = nullptr;
    std::shared_ptr<const std::function<Result(Arguments...)>> _function;
};
} // namespace KTPrivate
