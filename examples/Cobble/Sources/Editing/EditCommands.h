#pragma once

#include "EditCommand.h"

class EditResponder;

/// Decides who gets a command of the Edit menu: the text input that has the keyboard if the command
/// is one of its own, else the records. Commands about a selection mean the records only while their
/// table has the keyboard.
///
/// \code
/// const EditCommands commands(&responder);
/// if (commands.canDo(EditCommand::Paste))
///     commands.perform(EditCommand::Paste);
/// \endcode
class EditCommands
{
public:
    /// \param records must outlive this.
    explicit EditCommands(EditResponder *records) : _records(records) {}

    bool canDo(EditCommand command) const;
    /// Does nothing if it cannot be done.
    void perform(EditCommand command) const;

private:
    bool isForRecords(EditCommand command) const;

    EditResponder *_records;
};
