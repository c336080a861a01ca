target_sources(KTUtility PRIVATE
    Platform/Numbers/NSFormatter.cpp
    Platform/Numbers/NSNumberDigits.cpp
    Platform/Numbers/NSNumberEngine.cpp
    Platform/Numbers/NSNumberFormatter.cpp
    Platform/Numbers/NSNumberFormatterSettings.cpp
    Platform/Numbers/NSNumberQuickPaths.cpp
    Platform/Numbers/NSNumberReader.cpp
    Platform/Numbers/NSNumberText.cpp
    Platform/Numbers/NSNumberWriter.cpp
)
