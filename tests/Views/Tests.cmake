target_sources(KTUtilityTests PRIVATE
    Views/FocusRingTests.cpp
    Views/SliderTests.cpp
)
