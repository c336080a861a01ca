#pragma once

#include <KTUtility/Platform/Diagnostics/NSAssertionHandler.h>

/// Reports a value of a wrong type to the assertion handler, which raises.
/// \return false if a handler of somebody's own does not.
inline bool KTFailTransformation(const QString &className, const QString &method, int line,
                                 const QString &description)
{
    NSAssertionHandler::currentHandler()->handleFailureInMethod(
        method, NSAssertionSubject::instanceOf(className),
        QStringLiteral("ValueTransformers/") + className, line, description);
    return false;
}
