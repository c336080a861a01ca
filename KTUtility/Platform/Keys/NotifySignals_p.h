#pragma once

// Private to the library. For whoever follows all properties of an object.

#include <KTUtility/KTUtilityExport.h>

#include <QObject>

namespace KTPrivate {
/// Calls a slot once for each NOTIFY signal that an object emits, whatever property it is for.
/// \param slot the signature of a slot without parameters: "objectChanged()".
KTUTILITY_EXPORT void connectNotifySignals(const QObject *object, QObject *receiver,
                                           const char *slot);
} // namespace KTPrivate
