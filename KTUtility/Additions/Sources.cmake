target_sources(KTUtility PRIVATE
    Additions/CIImage_KTAdditions.cpp
    Additions/KTImageBadger.cpp
    Additions/KTStringTransformCache.cpp
    Additions/NSArray_KTAdditions.cpp
    Additions/NSArray_KTUniqueNames.cpp
    Additions/NSAttributedString_KTAdditions.cpp
    Additions/NSBezierPath_KTAdditions.cpp
    Additions/NSColor_KTAdditions.cpp
    Additions/NSData_KTArchives.cpp
    Additions/NSData_KTBase64.cpp
    Additions/NSDate_KTAdditions.cpp
    Additions/NSImage_KTAdditions.cpp
    Additions/NSIndexPath_KTAdditions.cpp
    Additions/NSMenu_KTAdditions.cpp
    Additions/NSString_KTAdditions.cpp
    Additions/NSString_KTNaming.cpp
)
