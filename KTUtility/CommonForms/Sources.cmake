target_sources(KTUtility PRIVATE
    CommonForms/CommonDates.cpp
    CommonForms/DateCandidates.cpp
    CommonForms/DateGrammar.cpp
    CommonForms/DateNameWords.cpp
    CommonForms/DatePatternWords.cpp
    CommonForms/DateResolver.cpp
    CommonForms/DateTokens.cpp
    CommonForms/DateWordRows.cpp
    CommonForms/DateWords.cpp
    CommonForms/FoldedText.cpp
    CommonForms/KTReadingFormatter.cpp
    CommonForms/PhraseTable.cpp
    CommonForms/RelativeDateWords.cpp
    CommonForms/RelativeDates.cpp
    CommonForms/TimeGrammar.cpp
)
