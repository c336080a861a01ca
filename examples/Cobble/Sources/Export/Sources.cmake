target_sources(CobbleHost PRIVATE
    Sources/Export/ExportDevice.cpp
    Sources/Export/LibraryExport.cpp
)
