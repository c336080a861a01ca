target_sources(DesktopTests PRIVATE
    Desktop/DesktopDisplay.cpp
    Desktop/DesktopMain.cpp
    Desktop/HostWindowTests.cpp
    Desktop/VisualTests.cpp
    Desktop/WindowTests.cpp
)
