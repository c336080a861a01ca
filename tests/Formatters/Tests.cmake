target_sources(KTUtilityTests PRIVATE
    Formatters/KTCurrencyFormatterTests.cpp
    Formatters/KTNumberFormatterTests.cpp
    Formatters/OptionsTests.cpp
)
