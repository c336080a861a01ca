target_sources(KTUtility PRIVATE
    Platform/Foundation/NSCharacterSet.cpp
    Platform/Foundation/NSDecimalNumber.cpp
    Platform/Foundation/NSException.cpp
    Platform/Foundation/NSFileHandle.cpp
    Platform/Foundation/NSLog.cpp
    Platform/Foundation/NSObject.cpp
    Platform/Foundation/NSStringFormat.cpp
)
