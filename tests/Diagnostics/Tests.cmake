target_sources(KTUtilityTests PRIVATE
    Diagnostics/KTAssertTests.cpp
    Diagnostics/KTLogCaptureTests.cpp
    Diagnostics/KTLogComponentTests.cpp
    Diagnostics/KTLogFormatTests.cpp
    Diagnostics/KTLoggerTests.cpp
    Diagnostics/LogFileTests.cpp
    Diagnostics/LogLevelsTests.cpp
    Diagnostics/LogRulesTests.cpp
    Diagnostics/LogSettingsFileTests.cpp
    Diagnostics/LoggerMenuTests.cpp
    Diagnostics/PackedLevelsTests.cpp
    Diagnostics/QtMessagesTests.cpp
)
