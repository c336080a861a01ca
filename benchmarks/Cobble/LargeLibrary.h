#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

/// Makes a library "People" of so many records, each with ten fields: four texts, two numbers, an
/// amount, two dates and a phone number.
Outcome<> makeLargeLibrary(const KTDatabaseBundle &bundle, qint64 recordCount);
