target_sources(KTUtilityTests PRIVATE
    Windows/DialogSupport.h
    Windows/KTAlertPanelDialogControllerTests.cpp
    Windows/KTDialogControllerTests.cpp
    Windows/KTDoNotShowAlertTests.cpp
    Windows/KTWindowControllerTests.cpp
    Windows/KTWindowControllerModelTests.cpp
    Windows/KTWindowManagerTests.cpp
)
