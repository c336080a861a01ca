target_sources(CobbleTests PRIVATE
    Cobble/Appearance/CountsTests.cpp
    Cobble/Appearance/ProblemLabelTests.cpp
    Cobble/Appearance/WindowLanguageTests.cpp
)
