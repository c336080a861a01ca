target_sources(KTUtilityTests PRIVATE
    CommonForms/Columns/KTColumnReadingTests.cpp
)
