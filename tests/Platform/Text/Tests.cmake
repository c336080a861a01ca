target_sources(KTUtilityTests PRIVATE
    Platform/Text/EnvironmentLocaleTests.cpp
    Platform/Text/NSCharacterSetTableTests.cpp
    Platform/Text/NSCharacterSetTests.cpp
    Platform/Text/NSLocaleTests.cpp
    Platform/Text/NSPercentEscapesTests.cpp
    Platform/Text/NSStringCaseTests.cpp
    Platform/Text/NSStringCompareTests.cpp
    Platform/Text/NSStringEncodingTests.cpp
    Platform/Text/NSStringNormalizationTests.cpp
    Platform/Text/NSStringTrimTests.cpp
    Platform/Text/UTF8Tests.cpp
    Platform/Text/VisibleTextTests.cpp
)
