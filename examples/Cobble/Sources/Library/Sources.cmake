target_sources(CobbleHost PRIVATE
    Sources/Library/BundleCheck.cpp
    Sources/Library/BundleLock.cpp
    Sources/Library/BundleOption.cpp
    Sources/Library/DatabaseConnection.cpp
    Sources/Library/DatabaseCopy.cpp
    Sources/Library/ExportDevice.cpp
    Sources/Library/Library.cpp
    Sources/Library/Library.h
    Sources/Library/LibraryExport.cpp
    Sources/Library/LibraryStore.cpp
    Sources/Library/PlugIns.cpp
    Sources/Library/RecordTexts.cpp
    Sources/Library/StoredValue.cpp
)
