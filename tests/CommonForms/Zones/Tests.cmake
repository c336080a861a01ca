target_sources(KTUtilityTests PRIVATE
    CommonForms/Zones/TypedZoneLocalesTests.cpp
    CommonForms/Zones/TypedZoneTests.cpp
    CommonForms/Zones/ZoneNamesTests.cpp
)
