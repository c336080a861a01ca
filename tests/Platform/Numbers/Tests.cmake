target_sources(KTUtilityTests PRIVATE
    Platform/Numbers/KTReadResultTests.cpp
    Platform/Numbers/NSFormatterTests.cpp
    Platform/Numbers/NSNumberFormatterICUTests.cpp
    Platform/Numbers/NSNumberFormatterReadingTests.cpp
    Platform/Numbers/NSNumberFormatterSettingsTests.cpp
    Platform/Numbers/NSNumberFormatterTableTests.cpp
    Platform/Numbers/NSNumberFormatterTests.cpp
    Platform/Numbers/NumberPatternTests.cpp
    Platform/Numbers/SharedNumberFormatterTests.cpp
)
