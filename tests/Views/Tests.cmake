target_sources(KTUtilityTests PRIVATE
    Views/KTFocusRingTests.cpp
    Views/KTMediaFieldSliderCellTests.cpp
    Views/KTMediaFieldSliderTests.cpp
)
