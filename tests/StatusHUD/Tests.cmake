target_sources(KTUtilityTests PRIVATE
    StatusHUD/KTStatusHUDControllerLayoutTests.cpp
    StatusHUD/KTStatusHUDControllerTests.cpp
    StatusHUD/KTStatusHUDViewTests.cpp
    StatusHUD/KTStatusHUDWindowTests.cpp
)
