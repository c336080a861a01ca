#pragma once

#include "FilterFields.h"

// Filters as texts that can be read again.

namespace FilterWriter {
/// The text of a filter whose values are in the same notation.
QString textOf(const FilterNode &node, const FilterFields &fields,
               FilterNotation notation = FilterNotation::Typed);
/// The text of one comparison.
QString textOf(const FilterComparison &comparison, const FilterFields &fields,
               FilterNotation notation = FilterNotation::Typed);
} // namespace FilterWriter
