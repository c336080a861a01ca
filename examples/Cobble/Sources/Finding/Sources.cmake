target_sources(CobbleHost PRIVATE
    Sources/Finding/FieldSummary.cpp
    Sources/Finding/FilterBar.cpp
    Sources/Finding/FilterRow.cpp
    Sources/Finding/FilterWords.cpp
    Sources/Finding/NothingFound.cpp
    Sources/Finding/SelectionSummary.cpp
    Sources/Finding/SummaryWorker.cpp
)
