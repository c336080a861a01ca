target_sources(CobbleHost PRIVATE
    Sources/Program/Cobble.cpp
)
