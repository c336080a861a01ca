target_sources(CobbleTests PRIVATE
    Cobble/Editing/CopiedFormsTests.cpp
    Cobble/Editing/CopiedRecordsTests.cpp
    Cobble/Editing/EditCommandsTests.cpp
    Cobble/Editing/PasteProblemsTests.cpp
    Cobble/Editing/PastePlanTests.cpp
    Cobble/Editing/PastedTableTests.cpp
    Cobble/Editing/PendingInputTests.cpp
)
