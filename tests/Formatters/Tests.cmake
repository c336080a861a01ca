target_sources(KTUtilityTests PRIVATE
    Formatters/KTCurrencyFormatterTests.cpp
    Formatters/KTDateTimeFormatterTests.cpp
    Formatters/KTDateTimeReadingTests.cpp
    Formatters/KTDurationFormatterTests.cpp
    Formatters/KTNumberFormatterTests.cpp
    Formatters/KTPhoneNumberFormatterTests.cpp
    Formatters/KTTimeFormatterTests.cpp
    Formatters/OptionsTests.cpp
    Formatters/RoundTripTests.cpp
)
