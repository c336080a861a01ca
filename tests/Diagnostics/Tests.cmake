target_sources(KTUtilityTests PRIVATE
    Diagnostics/KTAssertTests.cpp
    Diagnostics/KTLogCaptureTests.cpp
    Diagnostics/KTLoggerTests.cpp
    Diagnostics/LogFileTests.cpp
    Diagnostics/LogLevelsTests.cpp
    Diagnostics/LogSettingsFileTests.cpp
    Diagnostics/LoggerMenuTests.cpp
)
