target_sources(KTUtility PRIVATE
    Formatters/KTCurrencyFormatter.cpp
    Formatters/KTCurrencyNames.cpp
    Formatters/KTNumberFormatter.cpp
    Formatters/KTOptionsKeys.cpp
    Formatters/NSNumberFormatter_KTCurrency.cpp
)
