target_sources(CobbleTests PRIVATE
    Cobble/Window/ExportSheetTests.cpp
    Cobble/Window/FieldDelegateTests.cpp
    Cobble/Window/ImportSheetTests.cpp
    Cobble/Window/LargeLibraryTests.cpp
    Cobble/Window/MainWindowAccessTests.cpp
    Cobble/Window/MainWindowControllerTests.cpp
    Cobble/Window/MainWindowMemoryTests.cpp
    Cobble/Window/MainWindowTests.cpp
    Cobble/Window/MainWindowVisualTests.cpp
    Cobble/Window/MediaFieldTests.cpp
    Cobble/Window/RecordCommandsTests.cpp
    Cobble/Window/RecordFinderTests.cpp
    Cobble/Window/RejectedInputTests.cpp
    Cobble/Window/SmartLibraryListTests.cpp
    Cobble/Window/TransferSheetTests.cpp
    Cobble/Window/UndoTests.cpp
)
