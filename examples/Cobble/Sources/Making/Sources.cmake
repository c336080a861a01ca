target_sources(CobbleHost PRIVATE
    Sources/Making/FieldChanges.cpp
    Sources/Making/FieldExample.cpp
    Sources/Making/FieldListModel.cpp
    Sources/Making/FieldNameDelegate.cpp
    Sources/Making/FieldOptionsEditor.cpp
    Sources/Making/FieldPlan.cpp
    Sources/Making/FieldPreviewer.cpp
    Sources/Making/FieldScan.cpp
    Sources/Making/FieldSheet.cpp
    Sources/Making/LibraryActions.cpp
    Sources/Making/LibrarySteps.cpp
    Sources/Making/NameSheet.cpp
)
