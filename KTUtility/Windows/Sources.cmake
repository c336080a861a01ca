target_sources(KTUtility PRIVATE
    Windows/KTAlertPanelDialogController.cpp
    Windows/KTDialogController.cpp
    Windows/KTDoNotShowAlert.cpp
    Windows/KTWindowController.cpp
    Windows/KTWindowManager.cpp
)
