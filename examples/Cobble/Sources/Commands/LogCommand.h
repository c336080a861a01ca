#pragma once

#include "CommandContext.h"

/// `cobble log [COMPONENT LEVEL] [--to file|console] [--file-line on|off] [--clear]`: shows or
/// changes the logger's settings. Clearing comes first, so that one line can clear and set anew.
ExitCode runLogCommand(const QStringList &arguments, CommandContext &context);
