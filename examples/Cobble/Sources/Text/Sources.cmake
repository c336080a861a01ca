target_sources(CobbleHost PRIVATE
    Sources/Text/AlignedTable.cpp
    Sources/Text/CSVReader.cpp
    Sources/Text/CSVScanner.cpp
    Sources/Text/CSVSeparator.cpp
    Sources/Text/FormulaText.cpp
    Sources/Text/HTMLTable.cpp
    Sources/Text/ISODateParts.cpp
    Sources/Text/PrintableText.cpp
    Sources/Text/Safely.h
    Sources/Text/ShortText.cpp
    Sources/Text/TextDecoder.cpp
    Sources/Text/TextEncodings.cpp
    Sources/Text/TextFile.cpp
    Sources/Text/TextReader.cpp
    Sources/Text/TextSource.cpp
)
