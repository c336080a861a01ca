#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `undo`: takes a step back, or lists the steps.
ExitCode runUndoCommand(const QStringList &arguments, CommandContext &context);
/// The command `redo`: does a step again that was undone.
ExitCode runRedoCommand(const QStringList &arguments, CommandContext &context);
