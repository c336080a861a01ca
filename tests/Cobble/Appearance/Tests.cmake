target_sources(CobbleTests PRIVATE
    Cobble/Appearance/CountsTests.cpp
    Cobble/Appearance/FieldTitleTests.cpp
    Cobble/Appearance/HelpWindowTests.cpp
    Cobble/Appearance/IconsTests.cpp
    Cobble/Appearance/IsolatedTextTests.cpp
    Cobble/Appearance/LineIconTests.cpp
    Cobble/Appearance/ListNamesTests.cpp
    Cobble/Appearance/ProblemLabelTests.cpp
    Cobble/Appearance/RememberedColumnsTests.cpp
    Cobble/Appearance/SentenceTests.cpp
    Cobble/Appearance/WindowLanguageTests.cpp
    Cobble/Appearance/WindowPlaceTests.cpp
)
