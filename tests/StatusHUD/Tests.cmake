target_sources(KTUtilityTests PRIVATE
    StatusHUD/KTStatusHUDControllerTests.cpp
    StatusHUD/KTStatusHUDWindowTests.cpp
)
