target_sources(KTUtilityTests PRIVATE
    Platform/Diagnostics/ExceptionGuardTests.cpp
    Platform/Diagnostics/NSAssertionHandlerTests.cpp
    Platform/Diagnostics/NSLogTests.cpp
)
