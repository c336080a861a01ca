target_sources(CobbleHost PRIVATE
    Sources/Filter/ComparedText.cpp
    Sources/Filter/DatePeriod.cpp
    Sources/Filter/FilterCondition.cpp
    Sources/Filter/FilterFields.cpp
    Sources/Filter/FilterOperator.cpp
    Sources/Filter/FilterParser.cpp
    Sources/Filter/FilterSpan.cpp
    Sources/Filter/FilterWriter.cpp
    Sources/Filter/QueriedRecords.cpp
    Sources/Filter/RecordFilter.cpp
    Sources/Filter/RecordQuery.cpp
    Sources/Filter/SmartLibraries.cpp
)
