#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `field`: adds, removes and moves fields, and changes their types.
ExitCode runFieldCommand(const QStringList &arguments, CommandContext &context);
