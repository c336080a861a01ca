target_sources(CobbleHost PRIVATE
    Sources/Text/AlignedTable.cpp
    Sources/Text/CSVReader.cpp
    Sources/Text/CSVSeparator.cpp
    Sources/Text/FormulaText.cpp
    Sources/Text/Outcome.h
    Sources/Text/PrintableText.cpp
    Sources/Text/TextFile.cpp
)
