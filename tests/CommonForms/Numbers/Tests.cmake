target_sources(KTUtilityTests PRIVATE
    CommonForms/Numbers/CountTests.cpp
    CommonForms/Numbers/DurationGrammarTests.cpp
    CommonForms/Numbers/DurationSumTests.cpp
    CommonForms/Numbers/DurationWordsTests.cpp
    CommonForms/Numbers/ISODurationTests.cpp
    CommonForms/Numbers/MoneyGrammarTests.cpp
    CommonForms/Numbers/MoneyWordsTests.cpp
    CommonForms/Numbers/NumberGrammarTests.cpp
    CommonForms/Numbers/NumberSignsTests.cpp
    CommonForms/Numbers/NumeralTests.cpp
)
