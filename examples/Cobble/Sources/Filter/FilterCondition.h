#pragma once

#include "FilterFields.h"

#include <KTUtility/NSPredicate>

// A comparison of a filter as a condition.

namespace FilterCondition {
/// The condition that a record's value of the compared field fulfils. An empty field fulfils "is
/// empty", "is not" and what is negated, and nothing else; so does a field whose text could not be
/// read as a value of its type, unless texts are compared. Evaluating it raises an NSException where
/// it takes too long to find out whether a text matches an expression.
/// \param problem receives why there is none, and the number of the value that cannot be read.
/// \return nil if a value cannot be read.
NSPredicate of(const FilterComparison &comparison,
               const std::shared_ptr<const FilterFields> &fields, FilterNotation notation,
               FilterProblem *problem);
} // namespace FilterCondition
