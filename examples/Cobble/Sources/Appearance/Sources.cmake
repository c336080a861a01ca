target_sources(CobbleHost PRIVATE
    Sources/Appearance/Counts.cpp
    Sources/Appearance/FieldTitle.cpp
    Sources/Appearance/HelpWindow.cpp
    Sources/Appearance/Icons.cpp
    Sources/Appearance/IsolatedText.cpp
    Sources/Appearance/LineIcon.cpp
    Sources/Appearance/ListNames.cpp
    Sources/Appearance/ProblemLabel.cpp
    Sources/Appearance/RememberedColumns.cpp
    Sources/Appearance/Sentence.cpp
    Sources/Appearance/WindowLanguage.cpp
    Sources/Appearance/WindowPlace.cpp
)
