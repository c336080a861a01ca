target_sources(KTUtility PRIVATE
    Platform/Zones/ICUTimeZone.cpp
    Platform/Zones/SystemTimeZone.cpp
    Platform/Zones/TimeZoneRules.cpp
    Platform/Zones/ZoneChanges.cpp
    Platform/Zones/ZoneData.cpp
)
