#include "PlainWays.h"

#include "FieldReader.h"
#include "PlainDates.h"
#include "PlainDurations.h"
#include "PlainNumbers.h"
#include "PlainTimes.h"

#include <KTUtility/KTDateTimeFormatter>
#include <KTUtility/NSCalendar>

namespace {
/// In other calendars, a text may be read by that or by this one, as its year has it.
bool hasGregorianDates(const FieldReader &reader)
{
    const auto *const dates = qobject_cast<const KTDateTimeFormatter *>(reader.formatter());
    return dates && NSCalendar::calendarOfLocale(dates->locale()).calendarIdentifier() ==
                        NSGregorianCalendar;
}
} // namespace

std::unique_ptr<PlainWays> PlainWays::of(const FieldReader &reader)
{
    const FieldType type = reader.type();
    if (type == FieldType::Number || type == FieldType::Currency)
        return std::make_unique<PlainNumbers>(type == FieldType::Currency);
    if (type == FieldType::Duration)
        return std::make_unique<PlainDurations>();
    if (!hasGregorianDates(reader))
        return nullptr;
    if (type == FieldType::Date || type == FieldType::DateTime)
        return std::make_unique<PlainDates>();
    return std::make_unique<PlainTimes>();
}
