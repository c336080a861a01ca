#pragma once

// Private to the library. For functions that belong to an object.

#include <QObject>
#include <QPointer>

#include <functional>
#include <utility>

namespace KTPrivate {
/// A function that does nothing once an object is destroyed, as those that QObject::connect() takes
/// with a context. Without an object, or a function, it never does anything.
template<typename... Arguments>
std::function<void(Arguments...)> whileAlive(QObject *context,
                                             std::function<void(Arguments...)> function)
{
    return [guard = QPointer<QObject>(context), function = std::move(function)](Arguments... args) {
        if (guard && function)
            function(args...);
    };
}
} // namespace KTPrivate
