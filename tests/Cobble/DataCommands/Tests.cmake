target_sources(CobbleTests PRIVATE
    Cobble/DataCommands/DeleteCommandTests.cpp
    Cobble/DataCommands/FieldCommandTests.cpp
    Cobble/DataCommands/FieldNamesTests.cpp
    Cobble/DataCommands/JSONNumbersTests.cpp
    Cobble/DataCommands/NewCommandTests.cpp
    Cobble/DataCommands/RenameCommandTests.cpp
    Cobble/DataCommands/SetCommandTests.cpp
    Cobble/DataCommands/UndoCommandTests.cpp
)
