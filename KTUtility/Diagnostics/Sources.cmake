target_sources(KTUtility PRIVATE
    Diagnostics/KTAssert.cpp
    Diagnostics/KTLogCapture.cpp
    Diagnostics/KTLogComponent.cpp
    Diagnostics/KTLogLine.cpp
    Diagnostics/KTLogger.cpp
    Diagnostics/KTLoggerComponents.cpp
    Diagnostics/KTLoggerKeys.cpp
    Diagnostics/LogConsole.cpp
    Diagnostics/LogComponents.cpp
    Diagnostics/LogFile.cpp
    Diagnostics/LogLevels.cpp
    Diagnostics/LogRules.cpp
    Diagnostics/LogSettingsFile.cpp
    Diagnostics/LoggerMenu.cpp
    Diagnostics/PackedLevels.cpp
    Diagnostics/QtMessages.cpp
)
