target_sources(KTUtilityTests PRIVATE
    KTAssertTests.cpp
    KTDatabaseBundleTableTests.cpp
    KTDatabaseBundleTests.cpp
    KTDialogQueueModelTests.cpp
    KTDoNotShowAlertTests.cpp
    KTInternationalTests.cpp
    KTLoggerMenuTests.cpp
    KTLoggerTests.cpp
    KTMediaFilenameMungerTests.cpp
    KTWindowTests.cpp
)
