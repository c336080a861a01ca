#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `delete`: deletes records, or a library.
ExitCode runDeleteCommand(const QStringList &arguments, CommandContext &context);
