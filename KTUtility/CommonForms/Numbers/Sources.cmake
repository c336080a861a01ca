target_sources(KTUtility PRIVATE
    CommonForms/Numbers/Count.cpp
    CommonForms/Numbers/DurationGrammar.cpp
    CommonForms/Numbers/DurationSum.cpp
    CommonForms/Numbers/DurationWords.cpp
    CommonForms/Numbers/ISODuration.cpp
    CommonForms/Numbers/MoneyGrammar.cpp
    CommonForms/Numbers/MoneyWords.cpp
    CommonForms/Numbers/NumberGrammar.cpp
    CommonForms/Numbers/NumberSigns.cpp
    CommonForms/Numbers/Numeral.cpp
    CommonForms/Numbers/TypedDecimal.cpp
)
