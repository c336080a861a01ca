target_sources(KTUtilityTests PRIVATE
    Platform/AppKit/AnimationSupport.h
    Platform/AppKit/CIImageTests.cpp
    Platform/AppKit/NSAnimationTests.cpp
    Platform/AppKit/NSApplicationTests.cpp
    Platform/AppKit/NSArrayControllerTests.cpp
    Platform/AppKit/NSBezierPathTests.cpp
    Platform/AppKit/NSFontTests.cpp
    Platform/AppKit/NSImageTests.cpp
    Platform/AppKit/NSMenuItemTests.cpp
    Platform/AppKit/NSNibTests.cpp
    Platform/AppKit/NSScreenTests.cpp
    Platform/AppKit/NSTextFieldTests.cpp
    Platform/AppKit/NSTimerTests.cpp
    Platform/AppKit/NSViewAnimationTests.cpp
    Platform/AppKit/NSWindowControllerTests.cpp
    Platform/AppKit/NSWindowTests.cpp
)
