target_sources(KTUtility PRIVATE
    CommonForms/FoldedText.cpp
    CommonForms/KTReadingFormatter.cpp
    CommonForms/PhraseTable.cpp
)
