target_sources(KTUtility PRIVATE
    KTAssert.cpp
    KTLogCapture.cpp
    KTLogLine.cpp
    KTLogger.cpp
    KTLoggerComponents.cpp
    KTLoggerMenu.cpp
)
