target_sources(CobbleTests PRIVATE
    Cobble/Forms/DetailFormTests.cpp
)
