target_sources(CobbleHost PRIVATE
    Sources/Journal/CatalogueChange.cpp
    Sources/Journal/ChangeJournal.cpp
    Sources/Journal/FieldConversion.cpp
    Sources/Journal/JournalRepair.cpp
    Sources/Journal/RecordChanges.cpp
    Sources/Journal/SpentNumbers.cpp
    Sources/Journal/StepPlayer.cpp
    Sources/Journal/StepRecorder.cpp
    Sources/Journal/StepStack.cpp
    Sources/Journal/StepText.cpp
)
