target_sources(CobbleTests PRIVATE
    Cobble/Export/ChosenRecordsTests.cpp
    Cobble/Export/ExportDeviceTests.cpp
    Cobble/Export/LibraryExportTests.cpp
)
