target_sources(KTUtilityTests PRIVATE
    CommonForms/Dates/CommonDatesHostileTests.cpp
    CommonForms/Dates/CommonDatesLocalesTests.cpp
    CommonForms/Dates/CommonDatesMistakenTests.cpp
    CommonForms/Dates/CommonDatesTests.cpp
    CommonForms/Dates/DateCandidatesTests.cpp
    CommonForms/Dates/DateMeaningsTests.cpp
    CommonForms/Dates/DateWordsTests.cpp
    CommonForms/Dates/TimeGrammarTests.cpp
)
