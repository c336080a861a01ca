target_sources(KTUtilityTests PRIVATE
    Platform/AppKit/NSArrayControllerTests.cpp
    Platform/AppKit/NSMenuItemTests.cpp
)
