target_sources(KTUtilityTests PRIVATE
    Formatters/OptionsTests.cpp
)
