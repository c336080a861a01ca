target_sources(KTUtilityTests PRIVATE
    Platform/Text/EnvironmentLocaleTests.cpp
    Platform/Text/NSCharacterSetTests.cpp
    Platform/Text/NSLocaleTests.cpp
    Platform/Text/NSStringCaseTests.cpp
    Platform/Text/NSStringNormalizationTests.cpp
)
