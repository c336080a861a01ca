target_sources(KTUtility PRIVATE
    Formatters/KTCurrencyFormatter.cpp
    Formatters/KTCurrencyNames.cpp
    Formatters/KTDateTimeFormatter.cpp
    Formatters/KTDateTimePatterns.cpp
    Formatters/KTDateTimeReading.cpp
    Formatters/KTDurationFormatter.cpp
    Formatters/KTDurationTables.cpp
    Formatters/KTNumberFormatter.cpp
    Formatters/KTOptionsKeys.cpp
    Formatters/KTPhoneNumberFormatter.cpp
    Formatters/KTTimeFormatter.cpp
    Formatters/NSNumberFormatter_KTCurrency.cpp
)
