target_sources(CobbleHost PRIVATE
    Sources/PlugIns/PlugIns.cpp
)
