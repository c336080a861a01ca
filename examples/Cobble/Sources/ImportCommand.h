#pragma once

#include "CommandContext.h"

/// `cobble import FILE.csv [--library NAME] [--separator C] [--locale ID]`: reads the file and
/// shows the library that it would become, with the types of its columns and what cannot be read in
/// them. Nothing is written anywhere.
ExitCode runImportCommand(const QStringList &arguments, CommandContext &context);
