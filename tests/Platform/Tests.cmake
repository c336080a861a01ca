target_sources(KTUtilityTests PRIVATE
    Platform/TableTests.cpp
)
