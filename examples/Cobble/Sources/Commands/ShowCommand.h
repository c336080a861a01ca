#pragma once

#include "CommandContext.h"

/// `cobble show [LIBRARY] [--locale ID] [--limit N] [--bundle PATH]`: prints the records of a
/// library as its fields display them; without a name, the libraries of the database.
ExitCode runShowCommand(const QStringList &arguments, CommandContext &context);
