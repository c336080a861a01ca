#include "PlainWays.h"

#include "FieldReader.h"
#include "PlainDates.h"
#include "PlainDurations.h"
#include "PlainNumbers.h"
#include "PlainTimes.h"

std::unique_ptr<PlainWays> PlainWays::of(const FieldReader &reader)
{
    switch (reader.type()) {
    case FieldType::Number:
    case FieldType::Currency:
        return std::make_unique<PlainNumbers>(reader.type() == FieldType::Currency);
    case FieldType::Duration:
        return std::make_unique<PlainDurations>();
    case FieldType::Date:
    case FieldType::DateTime:
        return std::make_unique<PlainDates>();
    case FieldType::Time:
        return std::make_unique<PlainTimes>();
    case FieldType::Phone:
    case FieldType::Media:
    case FieldType::Text:
        break;
    }
    return nullptr;
}
