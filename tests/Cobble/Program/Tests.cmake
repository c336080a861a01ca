target_sources(CobbleTests PRIVATE
    Cobble/Program/CobbleTests.cpp
    Cobble/Program/CommandDocumentsTests.cpp
)
