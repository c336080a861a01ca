target_sources(KTUtility PRIVATE
    Formatters/CurrencyCandidates.cpp
    Formatters/DateFormatterLists.cpp
    Formatters/DatePatterns.cpp
    Formatters/DateReading.cpp
    Formatters/DigitGroups.cpp
    Formatters/KTCurrencyFormatter.cpp
    Formatters/KTDateFormatterList.cpp
    Formatters/KTDateTimeFormatter.cpp
    Formatters/KTDurationFormatter.cpp
    Formatters/KTDurationTables.cpp
    Formatters/KTNumberFormatter.cpp
    Formatters/KTOptionsKeys.cpp
    Formatters/KTPhoneNumberFormatter.cpp
    Formatters/KTTimeFormatter.cpp
    Formatters/NSNumberFormatter_KTCurrency.cpp
    Formatters/Today.cpp
)
