target_sources(KTUtilityTests PRIVATE
    Platform/Dates/NSCalendarDateFormatTests.cpp
    Platform/Dates/NSCalendarTests.cpp
    Platform/Dates/NSCivilDateTests.cpp
    Platform/Dates/NSDateCharactersTests.cpp
    Platform/Dates/NSDateFormatterICUTests.cpp
    Platform/Dates/NSDateFormatterPlatformTests.cpp
    Platform/Dates/NSDateFormatterReadingTests.cpp
    Platform/Dates/NSDateFormatterRoundTripTests.cpp
    Platform/Dates/NSDateFormatterTableTests.cpp
    Platform/Dates/NSDateFormatterTests.cpp
    Platform/Dates/NSDateNamesTests.cpp
    Platform/Dates/NSDatePatternTests.cpp
    Platform/Dates/NSNaturalLanguageDateTests.cpp
    Platform/Dates/NSNaturalLanguageReaderTests.cpp
    Platform/Dates/NSSeptemberTests.cpp
)
