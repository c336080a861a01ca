#pragma once

// Private to the library. For selectors that are kept until something happens.

#include "NSSelector.h"
#include <KTUtility/KTUtilityExport.h>

#include <QObject>
#include <QStringView>

namespace KTPrivate {
/// Writes to the console that an object has no method for a selector, or two, once for each class
/// and selector, so that a misspelt one is noticed when it is given and not when it would be called.
/// Null objects and selectors are no mistakes. For the main thread.
/// \param arguments how many the method will be called with, 3 at most.
/// \param use what the selector is for.
KTUTILITY_EXPORT void reportMissingSelector(const QObject *receiver, const NSSelector &selector,
                                            int arguments, QStringView use);
} // namespace KTPrivate
