#pragma once

#include "CommandContext.h"

/// `cobble export LIBRARY --to FILE [--locale ID] [--bundle PATH]`: writes the records of a library
/// with the exporter for the file's extension. The file appears when it is whole.
ExitCode runExportCommand(const QStringList &arguments, CommandContext &context);
