target_sources(KTUtilityTests PRIVATE
    Platform/Files/NSBundleCodeTests.cpp
    Platform/Files/NSBundleTests.cpp
    Platform/Files/NSFileCopyTests.cpp
    Platform/Files/NSFileHandleTests.cpp
    Platform/Files/NSFileManagerTests.cpp
    Platform/Files/NSPathUtilitiesTests.cpp
    Platform/Files/NSPropertyListBinaryReaderTests.cpp
    Platform/Files/NSPropertyListFileTests.cpp
    Platform/Files/NSPropertyListQuickReaderTests.cpp
    Platform/Files/NSPropertyListWriterTests.cpp
    Platform/Files/NSPropertyListXMLReaderTests.cpp
    Platform/Files/NSSearchPathTests.cpp
    Platform/Files/NSURLConnectionTests.cpp
    Platform/Files/NSURLTests.cpp
    Platform/Files/NSUserDefaultsFileTests.cpp
    Platform/Files/NSUserDefaultsTests.cpp
)
