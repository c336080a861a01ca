target_sources(KTUtilityTests PRIVATE
    Platform/Foundation/NSBundleTests.cpp
    Platform/Foundation/NSExceptionTests.cpp
    Platform/Foundation/NSFileManagerTests.cpp
    Platform/Foundation/NSPathUtilitiesTests.cpp
    Platform/Foundation/NSPropertyListBinaryReaderTests.cpp
    Platform/Foundation/NSPropertyListFileTests.cpp
    Platform/Foundation/NSPropertyListWriterTests.cpp
    Platform/Foundation/NSPropertyListXMLReaderTests.cpp
    Platform/Foundation/NSSearchPathTests.cpp
    Platform/Foundation/NSUserDefaultsFileTests.cpp
    Platform/Foundation/NSUserDefaultsTests.cpp
)
