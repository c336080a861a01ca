#pragma once

#include "CommandContext.h"

/// The command `window`: opens the main window and waits until the last one is closed, or draws it
/// into a file. The process needs an application with windows; see makeHostApplication().
ExitCode runWindowCommand(const QStringList &arguments, CommandContext &context);
