target_sources(KTUtilityTests PRIVATE
    Platform/AppKit/NSAnimationTests.cpp
    Platform/AppKit/NSApplicationTests.cpp
    Platform/AppKit/NSArrayControllerTests.cpp
    Platform/AppKit/NSImageTests.cpp
    Platform/AppKit/NSMenuItemTests.cpp
    Platform/AppKit/NSNibTests.cpp
    Platform/AppKit/NSTextFieldTests.cpp
)
