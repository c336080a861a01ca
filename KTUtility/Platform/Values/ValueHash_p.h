#pragma once

// Private to the library. For NSObject: the hashes that go with its equality.

#include <KTUtility/KTUtilityExport.h>

#include <QVariant>

#include <array>
#include <optional>

namespace KTPrivate {
/// The coordinates of a point, size, rectangle or line of doubles, which Qt compares with a
/// tolerance: no hash could agree with that. Unused ones are 0.
std::optional<std::array<double, 4>> coordinatesOf(const QVariant &value);

/// A hash that is equal for equal values.
size_t hashOf(const QVariant &value);

/// Sets the hash of the values of a type.
KTUTILITY_EXPORT void setHasher(QMetaType type, size_t (*hasher)(const void *value));
} // namespace KTPrivate
