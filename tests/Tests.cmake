target_sources(KTUtilityTests PRIVATE
    KTAssertTests.cpp
    KTLoggerMenuTests.cpp
    KTLoggerTests.cpp
    KTMediaFilenameMungerTests.cpp
)
