target_sources(KTUtilityTests PRIVATE
    Platform/Foundation/NSExceptionTests.cpp
)
