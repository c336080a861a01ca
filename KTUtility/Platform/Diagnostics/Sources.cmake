target_sources(KTUtility PRIVATE
    Platform/Diagnostics/ExceptionGuard.cpp
    Platform/Diagnostics/NSAssertionHandler.cpp
    Platform/Diagnostics/NSLog.cpp
)
