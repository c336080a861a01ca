#pragma once

#include "Library/Library.h"

// What values look like in a field, so that one sees what its settings do.

namespace FieldExample {
/// "−1,234.50", "3/4/2008"; nil for fields that show what was typed.
QString of(const LibraryField &field);
} // namespace FieldExample
