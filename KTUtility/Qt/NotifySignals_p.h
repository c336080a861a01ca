#pragma once

#include <QObject>

namespace KTPrivate {
/// Calls a slot once for each NOTIFY signal that an object emits, whatever property it is for.
/// \param slot the signature of a slot without parameters: "objectChanged()".
void connectNotifySignals(const QObject *object, QObject *receiver, const char *slot);
} // namespace KTPrivate
