target_sources(KTUtility PRIVATE
    Diagnostics/KTAssert.cpp
    Diagnostics/KTLogCapture.cpp
    Diagnostics/KTLogLine.cpp
    Diagnostics/KTLogger.cpp
    Diagnostics/KTLoggerComponents.cpp
    Diagnostics/KTLoggerKeys.cpp
    Diagnostics/LogConsole.cpp
    Diagnostics/LogFile.cpp
    Diagnostics/LogLevels.cpp
    Diagnostics/LogSettingsFile.cpp
    Diagnostics/LoggerMenu.cpp
)
