target_sources(CobbleTests PRIVATE
    Cobble/Finding/FieldSummaryTests.cpp
    Cobble/Finding/FilterBarTests.cpp
    Cobble/Finding/SummaryWorkerTests.cpp
)
