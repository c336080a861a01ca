target_sources(KTUtilityTests PRIVATE
    CommonForms/Text/FoldedTextTests.cpp
    CommonForms/Text/KTReadingFormatterTests.cpp
    CommonForms/Text/PhraseTableTests.cpp
    CommonForms/Text/SharedTablesTests.cpp
    CommonForms/Text/StemsTests.cpp
    CommonForms/Text/TextCursorTests.cpp
)
