target_sources(KTUtilityTests PRIVATE
    Platform/AppKit/NSMenuItemTests.cpp
)
