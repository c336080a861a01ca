target_sources(KTUtilityTests PRIVATE
    International/KTInternationalTests.cpp
)
