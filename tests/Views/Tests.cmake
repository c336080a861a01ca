target_sources(KTUtilityTests PRIVATE
    Views/KTFocusRingTests.cpp
    Views/KTMediaFieldSliderTests.cpp
)
