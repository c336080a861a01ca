target_sources(CobbleHost PRIVATE
    Sources/Making/LibraryActions.cpp
    Sources/Making/LibrarySteps.cpp
    Sources/Making/NameSheet.cpp
)
