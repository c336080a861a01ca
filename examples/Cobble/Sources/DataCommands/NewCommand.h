#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `new`: makes a library, or adds records to one.
ExitCode runNewCommand(const QStringList &arguments, CommandContext &context);
