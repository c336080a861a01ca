target_sources(KTUtility PRIVATE
    Additions/KTStringTransformCache.cpp
    Additions/KTString_KTDataTransformer.cpp
    Additions/NSArray_KTAdditions.cpp
    Additions/NSArray_KTUniqueNames.cpp
    Additions/NSAttributedString_KTAdditions.cpp
    Additions/NSColor_KTAdditions.cpp
    Additions/NSData_KTArchives.cpp
    Additions/NSData_KTBase64.cpp
    Additions/NSDate_KTAdditions.cpp
    Additions/NSString_KTAdditions.cpp
    Additions/NSString_KTNaming.cpp
)
