target_sources(CobbleTests PRIVATE
    Cobble/Records/ValueOrderTests.cpp
)
