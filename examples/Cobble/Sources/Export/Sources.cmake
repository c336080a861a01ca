target_sources(CobbleHost PRIVATE
    Sources/Export/ChosenRecords.cpp
    Sources/Export/ExportDevice.cpp
    Sources/Export/LibraryExport.cpp
)
