target_sources(KTUtilityTests PRIVATE
    CommonForms/FoldedTextTests.cpp
    CommonForms/KTReadingFormatterTests.cpp
    CommonForms/PhraseTableTests.cpp
)
