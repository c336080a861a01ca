target_sources(CobbleTests PRIVATE
    Cobble/Export/ExportDeviceTests.cpp
    Cobble/Export/LibraryExportTests.cpp
)
