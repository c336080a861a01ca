target_sources(CobbleTests PRIVATE
    Cobble/Records/FoldedTextTests.cpp
    Cobble/Records/OrderKeysTests.cpp
    Cobble/Records/RecentObjectsTests.cpp
    Cobble/Records/RecordArrangementTests.cpp
    Cobble/Records/RecordArrangerTests.cpp
    Cobble/Records/RecordScanTests.cpp
    Cobble/Records/RecordSearchTests.cpp
    Cobble/Records/RowRunsTests.cpp
    Cobble/Records/ValueOrderTests.cpp
)
