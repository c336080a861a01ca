target_sources(KTUtilityTests PRIVATE
    Platform/Diagnostics/NSAssertionHandlerTests.cpp
    Platform/Diagnostics/NSLogTests.cpp
)
