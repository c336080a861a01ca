#pragma once

#include "CommandContext.h"

/// `cobble import FILE.csv [--library NAME] [--separator C]`: reads the file and shows the library
/// that it would become. Nothing is written anywhere.
ExitCode runImportCommand(const QStringList &arguments, CommandContext &context);
