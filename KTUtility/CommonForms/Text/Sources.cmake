target_sources(KTUtility PRIVATE
    CommonForms/Text/FoldedText.cpp
    CommonForms/Text/KTReadingFormatter.cpp
    CommonForms/Text/PhraseTable.cpp
    CommonForms/Text/Stems.cpp
)
