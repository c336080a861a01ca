#pragma once

/// What the Edit menu does to what has the keyboard.
enum class EditCommand {
    Undo,
    Redo,
    Cut,
    Copy,
    CopyCell,
    Paste,
    PasteIntoCells,
    SelectAll,
    Duplicate,
    FillDown,
    NewRecord,
};
