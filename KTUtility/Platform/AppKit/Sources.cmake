target_sources(KTUtility PRIVATE
    Platform/AppKit/NSFont.cpp
    Platform/AppKit/NSKeyValueBinding.cpp
    Platform/AppKit/NSMenuItem.cpp
    Platform/AppKit/NSSelectionMarker.cpp
)
