target_sources(KTUtility PRIVATE
    Platform/Numbers/NSFormatter.cpp
    Platform/Numbers/NumberDigits.cpp
    Platform/Numbers/NumberEngine.cpp
    Platform/Numbers/NSNumberFormatter.cpp
    Platform/Numbers/NSNumberFormatterSettings.cpp
    Platform/Numbers/NSNumberQuickPaths.cpp
    Platform/Numbers/NumberReader.cpp
    Platform/Numbers/NumberText.cpp
    Platform/Numbers/NumberWriter.cpp
)
