target_sources(KTUtilityTests PRIVATE
    Platform/Numbers/NSNumberFormatterDifferentialTests.cpp
    Platform/Numbers/NSNumberFormatterReadingTests.cpp
    Platform/Numbers/NSNumberFormatterSettingsTests.cpp
    Platform/Numbers/NSNumberFormatterTableTests.cpp
    Platform/Numbers/NSNumberFormatterTests.cpp
)
