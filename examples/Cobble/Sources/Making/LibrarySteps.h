#pragma once

#include "FieldPlan.h"

#include <functional>

// What people do to libraries and their fields in a window, each a step of the journal.

namespace LibrarySteps {
/// Makes a step.
using Change = std::function<Outcome<>(const StepTitle &title,
                                       const std::function<Outcome<>(StepRecorder &)> &changes)>;

/// Makes a library of one field of texts, "Name".
Outcome<> makeLibrary(const Change &change, const QString &name);
Outcome<> renameLibrary(const Change &change, const Library &library, const QString &name);
Outcome<> removeLibrary(const Change &change, const Library &library);
/// Adds a field at the end. Amounts are in the currency of the user's locale, and stay in it. A name
/// that another field has, or none, is refused.
Outcome<> addField(const Change &change, const Library &library, const QString &name,
                   FieldType type);
/// \param to the place where the field stands then.
Outcome<> moveField(const Change &change, const Library &library, qsizetype from, qsizetype to);
/// Makes all of a plan. Titles that are taken, or none, are refused.
Outcome<> changeFields(const Change &change, const FieldPlan &plan);
} // namespace LibrarySteps
