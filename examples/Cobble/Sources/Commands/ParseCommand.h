#pragma once

#include "ExitCode.h"

#include <QStringList>

class CommandContext;

/// Shows what a formatter reads: `cobble parse TYPE TEXT…`.
ExitCode runParseCommand(const QStringList &arguments, CommandContext &context);
/// Shows what a formatter displays: `cobble format TYPE VALUE…`.
ExitCode runFormatCommand(const QStringList &arguments, CommandContext &context);
