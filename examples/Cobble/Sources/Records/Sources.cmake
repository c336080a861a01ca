target_sources(CobbleHost PRIVATE
    Sources/Records/ValueOrder.cpp
)
