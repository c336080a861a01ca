target_sources(CobbleTests PRIVATE
    Cobble/Library/BundleCheckTests.cpp
    Cobble/Library/BundleLockTests.cpp
    Cobble/Library/BundleOptionTests.cpp
    Cobble/Library/DatabaseCopyTests.cpp
    Cobble/Library/InterruptedChange.cpp
    Cobble/Library/LibraryCatalogueTests.cpp
    Cobble/Library/LibraryNamesTests.cpp
    Cobble/Library/LibraryStoreTests.cpp
    Cobble/Library/LibraryTableTests.cpp
    Cobble/Library/LibraryTests.cpp
    Cobble/Library/RecordIdsTests.cpp
    Cobble/Library/RecordPartTests.cpp
    Cobble/Library/RecordTextsTests.cpp
    Cobble/Library/StagedRowsTests.cpp
    Cobble/Library/StoredValueTests.cpp
)
