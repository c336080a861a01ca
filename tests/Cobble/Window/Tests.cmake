target_sources(CobbleTests PRIVATE
    Cobble/Window/MainWindowTests.cpp
    Cobble/Window/MediaFieldTests.cpp
    Cobble/Window/SearchTests.cpp
    Cobble/Window/SheetTests.cpp
    Cobble/Window/VisualTests.cpp
    Cobble/Window/WindowCommandTests.cpp
)
