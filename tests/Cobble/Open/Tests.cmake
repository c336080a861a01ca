target_sources(CobbleTests PRIVATE
    Cobble/Open/OpenBundleTests.cpp
)
