target_sources(CobbleHost PRIVATE
    Sources/Appearance/Counts.cpp
    Sources/Appearance/ProblemLabel.cpp
    Sources/Appearance/WindowLanguage.cpp
)
