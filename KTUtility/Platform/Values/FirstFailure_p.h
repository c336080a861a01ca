#pragma once

// Private to the library. For calls that are all to be made although some raise.

#include <exception>
#include <utility>

namespace KTPrivate {
/// Lets a series of calls be made although some raise: the first exception is kept until the end.
///
/// \code
/// FirstFailure failure;
/// for (const Step &step : steps)
///     failure.call([&] { step.perform(); });
/// failure.rethrow();
/// \endcode
class FirstFailure
{
public:
    /// Calls a function.
    template<typename Function>
    void call(const Function &function)
    {
        try {
            function();
        } catch (...) {
            if (!_first)
                _first = std::current_exception();
        }
    }

    /// Whether a call has raised.
    bool isThere() const { return _first != nullptr; }
    /// Throws what the first call that failed raised; nothing if none did.
    void rethrow()
    {
        if (_first)
            std::rethrow_exception(std::exchange(_first, nullptr));
    }

private:
    std::exception_ptr _first;
};
} // namespace KTPrivate
