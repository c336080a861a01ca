target_sources(CobbleTests PRIVATE
    Cobble/Text/AlignedTableTests.cpp
    Cobble/Text/CSVReaderTests.cpp
    Cobble/Text/CSVScannerTests.cpp
    Cobble/Text/CSVSeparatorTests.cpp
    Cobble/Text/CSVTextTests.cpp
    Cobble/Text/FormulaTextTests.cpp
    Cobble/Text/HTMLTableTests.cpp
    Cobble/Text/ISODateTextTests.cpp
    Cobble/Text/OutcomeTests.cpp
    Cobble/Text/PrintableTextTests.cpp
    Cobble/Text/SafelyTests.cpp
    Cobble/Text/ShortTextTests.cpp
    Cobble/Text/TextDecoderTests.cpp
    Cobble/Text/TextEncodingsTests.cpp
    Cobble/Text/TextFileTests.cpp
    Cobble/Text/TextSourceTests.cpp
)
