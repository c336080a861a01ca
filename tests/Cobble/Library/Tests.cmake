target_sources(CobbleTests PRIVATE
    Cobble/Library/LibraryStoreTests.cpp
    Cobble/Library/LibraryTests.cpp
    Cobble/Library/StoredValueTests.cpp
)
