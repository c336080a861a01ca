target_sources(KTUtilityTests PRIVATE
    Platform/Foundation/NSAssertionHandlerTests.cpp
    Platform/Foundation/NSAttributedStringTests.cpp
    Platform/Foundation/NSExceptionTests.cpp
    Platform/Foundation/NSInvokerTests.cpp
    Platform/Foundation/NSKeyValueCodingTests.cpp
    Platform/Foundation/NSObjectTests.cpp
    Platform/Foundation/NSScannerTests.cpp
    Platform/Foundation/NSStringFormatTests.cpp
    Platform/Foundation/TableTests.cpp
)
