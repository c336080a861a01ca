target_sources(CobbleTests PRIVATE
    Cobble/Journal/CatalogueChangeTests.cpp
    Cobble/Journal/ChangeJournalTests.cpp
    Cobble/Journal/FieldConversionTests.cpp
    Cobble/Journal/RecordChangesTests.cpp
    Cobble/Journal/JournalRepairTests.cpp
    Cobble/Journal/SpentNumbersTests.cpp
    Cobble/Journal/StepPlayerTests.cpp
    Cobble/Journal/StepRecorderTests.cpp
    Cobble/Journal/StepStackTests.cpp
    Cobble/Journal/StepTextTests.cpp
)
