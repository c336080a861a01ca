target_sources(KTUtilityTests PRIVATE
    KTAssertTests.cpp
    KTDatabaseBundleTableTests.cpp
    KTDatabaseBundleTests.cpp
    KTDoNotShowAlertTests.cpp
    KTInternationalTests.cpp
    KTLoggerMenuTests.cpp
    KTLoggerTests.cpp
    KTMediaFilenameMungerTests.cpp
    KTWindowTests.cpp
)
