target_sources(KTUtility PRIVATE
    Views/KTFocusRing.cpp
    Views/KTFocusRingContainer.cpp
    Views/KTFocusRingScrollView.cpp
    Views/KTFocusRingView.cpp
    Views/KTMediaFieldSlider.cpp
    Views/KTMediaFieldSliderCell.cpp
)
