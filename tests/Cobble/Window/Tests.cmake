target_sources(CobbleTests PRIVATE
    Cobble/Window/MainWindowTests.cpp
    Cobble/Window/MainWindowVisualTests.cpp
    Cobble/Window/MediaFieldTests.cpp
    Cobble/Window/RecordSearchTests.cpp
    Cobble/Window/TransferSheetTests.cpp
    Cobble/Window/WindowCommandTests.cpp
)
