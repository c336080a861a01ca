target_sources(KTUtility PRIVATE
    Diagnostics/KTAssert.cpp
    Diagnostics/KTLogCapture.cpp
    Diagnostics/KTLogLine.cpp
    Diagnostics/KTLogger.cpp
    Diagnostics/KTLoggerComponents.cpp
    Diagnostics/KTLoggerMenu.cpp
)
