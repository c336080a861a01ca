target_sources(KTUtility PRIVATE
    Platform/Text/EnvironmentLocale.cpp
    Platform/Text/NSCharacterSet.cpp
    Platform/Text/NSLocale.cpp
    Platform/Text/NSPercentEscapes.cpp
    Platform/Text/NSStringCase.cpp
    Platform/Text/NSStringCompare.cpp
    Platform/Text/NSStringEncoding.cpp
    Platform/Text/NSStringNormalization.cpp
    Platform/Text/NSStringTrim.cpp
    Platform/Text/UTF8.cpp
    Platform/Text/VisibleText.cpp
)
