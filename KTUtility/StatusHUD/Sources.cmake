target_sources(KTUtility PRIVATE
    StatusHUD/KTStatusHUDController.cpp
    StatusHUD/KTStatusHUDView.cpp
    StatusHUD/KTStatusHUDWindow.cpp
)
