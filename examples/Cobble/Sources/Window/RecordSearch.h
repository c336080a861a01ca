#pragma once

#include "OpenLibrary.h"

#include <KTUtility/NSPredicate>

// Finding records by a typed text.

namespace RecordSearch {
/// The records that a text finds: every word of it is in one of their texts, whatever its case and
/// accents; or a field whose type is no text reads it as the record's value ("March 4 2008" finds
/// "3/4/2008").
/// \param library must live as long as the predicate is used.
/// \return nil, which filters nothing, for a blank text.
NSPredicate predicateFor(const OpenLibrary &library, const QString &typed);
} // namespace RecordSearch
