target_sources(KTUtility PRIVATE
    Platform/AppKit/NSArrayController.cpp
    Platform/AppKit/NSFont.cpp
    Platform/AppKit/NSKeyValueBinding.cpp
    Platform/AppKit/NSMenuItem.cpp
    Platform/AppKit/NSSelectionMarker.cpp
    Platform/AppKit/NSSelectionProxy.cpp
)
