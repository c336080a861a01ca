target_sources(CobbleHost PRIVATE
    Sources/Library/BundleLock.cpp
    Sources/Library/BundleOption.cpp
    Sources/Library/Library.cpp
    Sources/Library/Library.h
    Sources/Library/LibraryExport.cpp
    Sources/Library/LibraryStore.cpp
    Sources/Library/PlugIns.cpp
    Sources/Library/RecordTexts.cpp
    Sources/Library/StoredValue.cpp
)
