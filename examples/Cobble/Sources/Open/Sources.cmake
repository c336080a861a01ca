target_sources(CobbleHost PRIVATE
    Sources/Open/OpenBundle.cpp
    Sources/Open/OpenLibrary.cpp
    Sources/Open/RecordList.cpp
    Sources/Open/StoredRecord.cpp
)
