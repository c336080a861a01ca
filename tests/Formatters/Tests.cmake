target_sources(KTUtilityTests PRIVATE
    Formatters/CommonFormsRoundTripTests.cpp
    Formatters/CommonNumberFormsTests.cpp
    Formatters/CommonNumberRoundTripTests.cpp
    Formatters/CurrencyCandidatesTests.cpp
    Formatters/CurrencyNamesTests.cpp
    Formatters/DateFormatterListsTests.cpp
    Formatters/DatePatternsTests.cpp
    Formatters/DateReadingTests.cpp
    Formatters/DigitGroupsTests.cpp
    Formatters/FormatterLocaleTests.cpp
    Formatters/FormatterRoundTripTests.cpp
    Formatters/KTCurrencyFormatterTests.cpp
    Formatters/NameSearchTests.cpp
    Formatters/NumberLettersTests.cpp
    Formatters/KTDateFormatterListTests.cpp
    Formatters/KTDateTimeFormatterCommonFormsTests.cpp
    Formatters/KTDateTimeFormatterReadingTests.cpp
    Formatters/KTDateTimeFormatterTests.cpp
    Formatters/KTDurationFormatterModelTests.cpp
    Formatters/KTDurationFormatterTests.cpp
    Formatters/KTNumberFormatterPassTests.cpp
    Formatters/KTNumberFormatterTests.cpp
    Formatters/KTOptionsKeysRoundTripTests.cpp
    Formatters/KTOptionsKeysTests.cpp
    Formatters/KTPhoneNumberFormatterModelTests.cpp
    Formatters/KTPhoneNumberFormatterTests.cpp
    Formatters/KTTimeFormatterTests.cpp
    Formatters/PhoneDigitsTests.cpp
    Formatters/PhonePatternsTests.cpp
    Formatters/StandardFormsTests.cpp
    Formatters/TodayTests.cpp
    Formatters/TypedRows.cpp
    Formatters/TypedRowsTests.cpp
    support/WallClockAt.cpp
)

# The time at which the rows are typed.
target_link_options(KTUtilityTests PRIVATE LINKER:--export-dynamic-symbol=clock_gettime
    LINKER:--export-dynamic-symbol=gettimeofday)

# Prints how the rows are read: scripts/typed.
add_executable(TypedRows
    Formatters/TypedRows.cpp
    Formatters/TypedRowsMain.cpp
    support/WallClockAt.cpp
)
kt_configure_test_program(TypedRows)
target_link_options(TypedRows PRIVATE LINKER:--export-dynamic-symbol=clock_gettime
    LINKER:--export-dynamic-symbol=gettimeofday)
