target_sources(KTUtility PRIVATE
    Platform/Diagnostics/NSAssertionHandler.cpp
    Platform/Diagnostics/NSLog.cpp
)
