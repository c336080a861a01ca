target_sources(KTUtility PRIVATE
    Platform/AppKit/NSFont.cpp
    Platform/AppKit/NSMenuItem.cpp
)
