target_sources(KTUtilityTests PRIVATE
    CommonForms/CommonDatesHostileTests.cpp
    CommonForms/CommonDatesLocalesTests.cpp
    CommonForms/CommonDatesTests.cpp
    CommonForms/CountTests.cpp
    CommonForms/DateCandidatesTests.cpp
    CommonForms/DateWordsTests.cpp
    CommonForms/DurationGrammarTests.cpp
    CommonForms/DurationSumTests.cpp
    CommonForms/DurationWordsTests.cpp
    CommonForms/FieldDateTests.cpp
    CommonForms/FoldedTextTests.cpp
    CommonForms/ISODateModelTests.cpp
    CommonForms/ISODateTests.cpp
    CommonForms/ISODurationTests.cpp
    CommonForms/KTColumnReadingTests.cpp
    CommonForms/KTReadingFormatterTests.cpp
    CommonForms/MailDateTests.cpp
    CommonForms/MoneyGrammarTests.cpp
    CommonForms/MoneyWordsTests.cpp
    CommonForms/NumberGrammarTests.cpp
    CommonForms/NumberSignsTests.cpp
    CommonForms/NumeralTests.cpp
    CommonForms/PhraseTableTests.cpp
    CommonForms/SharedTablesTests.cpp
    CommonForms/ShownDatePatternTests.cpp
    CommonForms/ShownDateTests.cpp
    CommonForms/StandardDateReaderTests.cpp
    CommonForms/StandardDateTests.cpp
    CommonForms/StemsTests.cpp
    CommonForms/TextCursorTests.cpp
    CommonForms/TimeGrammarTests.cpp
    CommonForms/TypedRows.cpp
    CommonForms/TypedRowsTests.cpp
    CommonForms/TypedZoneLocalesTests.cpp
    CommonForms/TypedZoneTests.cpp
    CommonForms/ZoneNamesTests.cpp
    support/WallClockAt.cpp
)
# The time at which the rows are typed.
target_link_options(KTUtilityTests PRIVATE LINKER:--export-dynamic-symbol=clock_gettime
    LINKER:--export-dynamic-symbol=gettimeofday)

# Prints how the rows are read: scripts/typed.
add_executable(TypedRows
    CommonForms/TypedRows.cpp
    CommonForms/TypedRowsMain.cpp
    support/WallClockAt.cpp
)
kt_configure_test_program(TypedRows)
target_link_options(TypedRows PRIVATE LINKER:--export-dynamic-symbol=clock_gettime
    LINKER:--export-dynamic-symbol=gettimeofday)
