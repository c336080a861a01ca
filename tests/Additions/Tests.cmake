target_sources(KTUtilityTests PRIVATE
    Additions/CollectionRows.cpp
    Additions/NSArray_KTAdditionsTableTests.cpp
    Additions/NSArray_KTAdditionsTests.cpp
    Additions/NSArray_KTUniqueNamesModelTests.cpp
    Additions/NSBezierPath_KTAdditionsTests.cpp
    Additions/NSData_KTAdditionsTests.cpp
    Additions/NSDate_KTAdditionsTests.cpp
    Additions/NSImage_KTAdditionsTests.cpp
    Additions/NSMenu_KTAdditionsTests.cpp
    Additions/NSString_KTAdditionsTests.cpp
    Additions/NSString_KTNamingTests.cpp
    support/TestField.cpp
)
