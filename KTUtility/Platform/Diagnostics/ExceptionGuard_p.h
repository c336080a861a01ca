#pragma once

// Private to the library. For whatever calls code of the program out of the event loop.

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringView>

namespace KTPrivate {
/// Why the exception that is being handled was raised, for a person to read; never empty. To be
/// called in a catch clause only.
KTUTILITY_EXPORT QString reasonOfException();

/// Writes the exception that is being handled to the console, "*** exception in WHERE NAME: REASON".
/// To be called in a catch clause only.
KTUTILITY_EXPORT void logException(QStringView where, QStringView name = {});

/// Calls code of the program out of a timer, a signal or an event of Qt, which no exception may
/// leave: what it raises is written to the console and goes no further.
///
/// What a program calls itself is called without: there, exceptions pass to the caller.
///
/// \code
/// guarded(u"the action", selector, [&] { action.perform(target); });
/// \endcode
/// \param where,name what is called, to stand behind "exception in". The name has to be there
/// afterwards, whatever is called.
/// \return whether nothing was raised.
template<typename Function>
bool guarded(QStringView where, QStringView name, const Function &function)
{
    try {
        function();
        return true;
    } catch (...) {
        logException(where, name);
    }
    return false;
}

/// The same for what has no name.
template<typename Function>
bool guarded(QStringView where, const Function &function)
{
    return guarded(where, {}, function);
}
} // namespace KTPrivate
