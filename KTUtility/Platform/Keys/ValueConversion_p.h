#pragma once

// Private to the library. For key-value coding, calls by selector, and setters known by address.

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QVariant>

#include <optional>

namespace KTPrivate {
/// A value as the type that a property or parameter has.
///
/// Numbers convert as the platform's do: their fractions are cut, every number other than 0 is
/// true, and integers that are too large for a smaller type lose their upper bits. A text is true
/// as NSString::boolValue() reads it. Optionals take what they can hold, and give it (see
/// NSOptionalType). Everything else converts as Qt's variants do; lengths of time (std::chrono) and
/// numbers of seconds into each other.
/// \return nothing if there is no such conversion.
KTUTILITY_EXPORT std::optional<QVariant> convertedValue(const QVariant &value, QMetaType type);
} // namespace KTPrivate
