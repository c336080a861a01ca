#pragma once

#include "EditCommand.h"

class QWidget;

// The widgets that people type texts into: line edits and text edits.

namespace TextInputs {
/// The one that has the keyboard; null if none has.
QWidget *focused();
/// Whether a command is one that text inputs have: taking back what was typed, cutting, copying,
/// pasting, selecting all.
bool has(EditCommand command);
/// Whether it would do anything in an input just now.
bool canDo(const QWidget *input, EditCommand command);
void perform(QWidget *input, EditCommand command);
/// Has the input that has the keyboard do it, if it can.
/// \return whether it could.
bool performInFocused(EditCommand command);
} // namespace TextInputs
