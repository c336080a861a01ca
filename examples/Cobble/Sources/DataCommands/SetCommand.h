#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `set`: changes values of records.
ExitCode runSetCommand(const QStringList &arguments, CommandContext &context);
