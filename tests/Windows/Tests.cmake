target_sources(KTUtilityTests PRIVATE
    Windows/KTDialogQueueModelTests.cpp
    Windows/KTDoNotShowAlertTests.cpp
    Windows/KTWindowTests.cpp
)
