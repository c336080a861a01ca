#pragma once

#include "Commands/CommandContext.h"

#include <QStringList>

/// The command `rename`: gives a library or a field another name.
ExitCode runRenameCommand(const QStringList &arguments, CommandContext &context);
