target_sources(CobbleTests PRIVATE
    Cobble/Making/FieldChangesTests.cpp
    Cobble/Making/FieldExampleTests.cpp
    Cobble/Making/FieldListModelTests.cpp
    Cobble/Making/FieldNameDelegateTests.cpp
    Cobble/Making/FieldOptionsEditorTests.cpp
    Cobble/Making/FieldPlanTests.cpp
    Cobble/Making/FieldPreviewerTests.cpp
    Cobble/Making/FieldScanTests.cpp
    Cobble/Making/FieldSheetTests.cpp
    Cobble/Making/LibraryActionsTests.cpp
    Cobble/Making/LibraryStepsTests.cpp
)
