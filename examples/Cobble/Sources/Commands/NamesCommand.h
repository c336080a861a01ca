#pragma once

#include "CommandContext.h"

/// `cobble names [--] TEXT…`: shows what each naming transform of the framework makes of each text.
ExitCode runNamesCommand(const QStringList &arguments, CommandContext &context);
