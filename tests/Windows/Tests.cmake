target_sources(KTUtilityTests PRIVATE
    Windows/KTDoNotShowAlertTests.cpp
    Windows/KTWindowManagerModelTests.cpp
    Windows/KTWindowManagerTests.cpp
)
