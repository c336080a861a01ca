target_sources(CobbleHost PRIVATE
    Sources/Records/ArrangementWorker.cpp
    Sources/Records/FoldedText.cpp
    Sources/Records/OrderKeys.cpp
    Sources/Records/RecordArrangement.cpp
    Sources/Records/RecordArranger.cpp
    Sources/Records/RecordScan.cpp
    Sources/Records/RecordSearch.cpp
    Sources/Records/RowRuns.cpp
    Sources/Records/ScannedRecord.cpp
    Sources/Records/TextOrder.cpp
    Sources/Records/ValueOrder.cpp
)
