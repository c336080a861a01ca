#pragma once

#include "Outcome.h"

#include <exception>

/// What a function gives, where nothing may be thrown: in a thread, an exception ends the program.
///
/// \code
/// const Outcome<RecordIds> found = safely([&] { return search(store); });
/// \endcode
/// \return the function's outcome; if it throws, a failure that says what.
template<typename Make>
auto safely(const Make &make) -> decltype(make())
{
    try {
        return make();
    } catch (const std::exception &failure) {
        return Failure{QString::fromUtf8(failure.what())};
    }
}
