target_sources(CobbleHost PRIVATE
    Sources/DataCommands/DataChange.cpp
    Sources/DataCommands/DeleteCommand.cpp
    Sources/DataCommands/FieldCommand.cpp
    Sources/DataCommands/FieldNames.cpp
    Sources/DataCommands/FieldSettings.cpp
    Sources/DataCommands/JSONNumbers.cpp
    Sources/DataCommands/JSONRecords.cpp
    Sources/DataCommands/NewCommand.cpp
    Sources/DataCommands/RecordNumbers.cpp
    Sources/DataCommands/RenameCommand.cpp
    Sources/DataCommands/SetCommand.cpp
    Sources/DataCommands/TypedRecord.cpp
    Sources/DataCommands/UndoCommand.cpp
)
