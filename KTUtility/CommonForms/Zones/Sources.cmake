target_sources(KTUtility PRIVATE
    CommonForms/Zones/TypedZone.cpp
    CommonForms/Zones/ZoneNames.cpp
)
