target_sources(KTUtility PRIVATE
    CommonForms/Dates/CommonDates.cpp
    CommonForms/Dates/DateCandidates.cpp
    CommonForms/Dates/DateGrammar.cpp
    CommonForms/Dates/DateMeanings.cpp
    CommonForms/Dates/DateNameWords.cpp
    CommonForms/Dates/DatePatternWords.cpp
    CommonForms/Dates/DateResolver.cpp
    CommonForms/Dates/DateTokens.cpp
    CommonForms/Dates/DateWordRows.cpp
    CommonForms/Dates/DateWords.cpp
    CommonForms/Dates/RelativeDateWords.cpp
    CommonForms/Dates/RelativeDates.cpp
    CommonForms/Dates/TimeGrammar.cpp
)
