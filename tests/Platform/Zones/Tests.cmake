target_sources(KTUtilityTests PRIVATE
    Platform/Zones/SystemTimeZoneTests.cpp
    Platform/Zones/TimeZoneRulesTests.cpp
    Platform/Zones/ZoneChangesTests.cpp
    Platform/Zones/ZoneDataTests.cpp
)
