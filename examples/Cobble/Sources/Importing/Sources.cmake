target_sources(CobbleHost PRIVATE
    Sources/Importing/ColumnEditor.cpp
    Sources/Importing/ImportPreview.cpp
    Sources/Importing/ImportPreviewer.cpp
    Sources/Importing/WorkThread.cpp
)
