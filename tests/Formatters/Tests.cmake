target_sources(KTUtilityTests PRIVATE
    Formatters/DurationModelTests.cpp
    Formatters/KTCurrencyFormatterTests.cpp
    Formatters/KTDateFormatterListTests.cpp
    Formatters/KTDateTimeFormatterTests.cpp
    Formatters/KTDateTimeReadingTests.cpp
    Formatters/KTDurationFormatterTests.cpp
    Formatters/KTNumberFormatterTests.cpp
    Formatters/KTPhoneNumberFormatterTests.cpp
    Formatters/KTTimeFormatterTests.cpp
    Formatters/OptionsRoundTripTests.cpp
    Formatters/OptionsTests.cpp
    Formatters/PhoneNumberModelTests.cpp
    Formatters/RoundTripTests.cpp
)
