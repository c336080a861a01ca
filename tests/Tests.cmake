target_sources(KTUtilityTests PRIVATE
    KTAssertTests.cpp
    KTDatabaseBundleTableTests.cpp
    KTDatabaseBundleTests.cpp
    KTInternationalTests.cpp
    KTLoggerMenuTests.cpp
    KTLoggerTests.cpp
    KTMediaFilenameMungerTests.cpp
)
