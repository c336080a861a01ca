target_sources(CobbleTests PRIVATE
    Cobble/Making/LibraryActionsTests.cpp
    Cobble/Making/LibraryStepsTests.cpp
)
