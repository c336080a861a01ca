target_sources(CobbleTests PRIVATE
    Cobble/Importing/ColumnEditorTests.cpp
    Cobble/Importing/ImportPreviewTests.cpp
    Cobble/Importing/ImportPreviewerTests.cpp
    Cobble/Importing/WorkThreadTests.cpp
)
