target_sources(KTUtilityTests PRIVATE
    StatusHUD/HUDLayoutTests.cpp
    StatusHUD/HUDLifecycleTests.cpp
)
