target_sources(KTUtility PRIVATE
    Platform/Numbers/KTReadResult.cpp
    Platform/Numbers/NSFormatter.cpp
    Platform/Numbers/NSNumberFormatter.cpp
    Platform/Numbers/NSNumberFormatterPrivate.cpp
    Platform/Numbers/NumberDigits.cpp
    Platform/Numbers/NumberEngine.cpp
    Platform/Numbers/NumberPattern.cpp
    Platform/Numbers/NumberQuickPaths.cpp
    Platform/Numbers/NumberReader.cpp
    Platform/Numbers/NumberText.cpp
    Platform/Numbers/NumberWriter.cpp
    Platform/Numbers/ScientificWriter.cpp
    Platform/Numbers/SharedNumberFormatter.cpp
)
