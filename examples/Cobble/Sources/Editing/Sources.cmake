target_sources(CobbleHost PRIVATE
    Sources/Editing/CopiedForms.cpp
    Sources/Editing/CopiedRecords.cpp
    Sources/Editing/EditCommand.h
    Sources/Editing/EditCommands.cpp
    Sources/Editing/EditMenu.cpp
    Sources/Editing/EditResponder.h
    Sources/Editing/PastePlan.cpp
    Sources/Editing/PasteProblems.cpp
    Sources/Editing/PastedTable.cpp
    Sources/Editing/PendingInput.cpp
    Sources/Editing/RejectedInput.h
    Sources/Editing/TextInput.cpp
    Sources/Editing/TextInputs.cpp
)
