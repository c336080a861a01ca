target_sources(CobbleHost PRIVATE
    Sources/Fields/FieldFormat.cpp
    Sources/Fields/FieldReader.cpp
    Sources/Fields/FieldType.cpp
    Sources/Fields/FieldTypeTitles.cpp
    Sources/Fields/FieldValue.cpp
    Sources/Fields/PhoneLayouts.cpp
    Sources/Fields/PlainClock.cpp
    Sources/Fields/PlainColumn.cpp
    Sources/Fields/PlainDates.cpp
    Sources/Fields/PlainDurations.cpp
    Sources/Fields/PlainNumbers.cpp
    Sources/Fields/PlainText.cpp
    Sources/Fields/PlainTimes.cpp
    Sources/Fields/PlainWays.cpp
    Sources/Fields/ZoneDays.cpp
)
