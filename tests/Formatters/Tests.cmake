target_sources(KTUtilityTests PRIVATE
    Formatters/FormatterLocaleTests.cpp
    Formatters/FormatterRoundTripTests.cpp
    Formatters/KTCurrencyFormatterTests.cpp
    Formatters/KTDateFormatterListTests.cpp
    Formatters/KTDateTimeFormatterReadingTests.cpp
    Formatters/KTDateTimeFormatterTests.cpp
    Formatters/KTDurationFormatterModelTests.cpp
    Formatters/KTDurationFormatterTests.cpp
    Formatters/KTNumberFormatterTests.cpp
    Formatters/KTOptionsKeysRoundTripTests.cpp
    Formatters/KTOptionsKeysTests.cpp
    Formatters/KTPhoneNumberFormatterModelTests.cpp
    Formatters/KTPhoneNumberFormatterTests.cpp
    Formatters/KTTimeFormatterTests.cpp
)
