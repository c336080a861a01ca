target_sources(KTUtility PRIVATE
    KTAssert.cpp
    KTDatabaseBundle.cpp
    KTDatabaseBundleStoring.cpp
    KTInstanceNumbers.cpp
    KTInternational.cpp
    KTLogCapture.cpp
    KTLogLine.cpp
    KTLogger.cpp
    KTLoggerComponents.cpp
    KTLoggerMenu.cpp
    KTMediaFilenameMunger.cpp
    KTMediaNames.cpp
    KTStagedFile.cpp
)
