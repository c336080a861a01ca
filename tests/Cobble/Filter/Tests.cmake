target_sources(CobbleTests PRIVATE
    Cobble/Filter/DatePeriodTests.cpp
    Cobble/Filter/FilterFieldsTests.cpp
    Cobble/Filter/FilterOperatorTests.cpp
    Cobble/Filter/FilterWriterTests.cpp
    Cobble/Filter/QueriedRecordsTests.cpp
    Cobble/Filter/RecordFilterTests.cpp
    Cobble/Filter/RecordQueryTests.cpp
    Cobble/Filter/SmartLibrariesTests.cpp
)
