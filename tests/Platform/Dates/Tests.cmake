target_sources(KTUtilityTests PRIVATE
    Platform/Dates/CalendarDateFormatTests.cpp
    Platform/Dates/CivilDateTests.cpp
    Platform/Dates/DateCharactersTests.cpp
    Platform/Dates/DateNamesTests.cpp
    Platform/Dates/DatePatternTests.cpp
    Platform/Dates/NSCalendarTests.cpp
    Platform/Dates/NSDateFormatterICUTests.cpp
    Platform/Dates/NSDateFormatterPlatformTests.cpp
    Platform/Dates/NSDateFormatterReadingTests.cpp
    Platform/Dates/NSDateFormatterRoundTripTests.cpp
    Platform/Dates/NSDateFormatterTableTests.cpp
    Platform/Dates/NSDateFormatterTests.cpp
    Platform/Dates/NaturalLanguageDateTests.cpp
    Platform/Dates/NaturalLanguageReaderTests.cpp
    Platform/Dates/SeptemberTests.cpp
)
