#pragma once

#include "DateSaid_p.h"
#include "DateTokens_p.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Dates/NSCalendar.h>

#include <QString>

namespace KTPrivate {
/// What a part of a typed date means, for people: numbers for numbers, and for words English ones,
/// whatever the language of the text is: "March", "Wednesday", "PM", "minute".
/// \param calendar in which months and eras are named.
KTUTILITY_EXPORT QString meaningOf(const DateSaid::Part &part, const DateToken &token,
                                   const NSCalendar &calendar);
} // namespace KTPrivate
