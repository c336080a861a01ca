target_sources(KTUtility PRIVATE
    Platform/AppKit/NSAlert.cpp
    Platform/AppKit/NSApplication.cpp
    Platform/AppKit/NSArrayController.cpp
    Platform/AppKit/NSBezierPath.cpp
    Platform/AppKit/NSFont.cpp
    Platform/AppKit/NSGraphicsContext.cpp
    Platform/AppKit/NSImage.cpp
    Platform/AppKit/NSKeyValueBinding.cpp
    Platform/AppKit/NSMenuItem.cpp
    Platform/AppKit/NSNib.cpp
    Platform/AppKit/NSSelectionProxy.cpp
    Platform/AppKit/NSSliderCell.cpp
    Platform/AppKit/NSWindowController.cpp
)
