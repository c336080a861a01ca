target_sources(DesktopTests PRIVATE
    Desktop/DesktopDialogTests.cpp
    Desktop/DesktopDisplay.cpp
    Desktop/DesktopHostTests.cpp
    Desktop/DesktopMain.cpp
    Desktop/DesktopVisualTests.cpp
)
