#pragma once

#include "CommandContext.h"

/// `cobble import FILE [--library NAME] [--separator C] [--encoding NAME]
/// [--no-header] [--locale ID] [--skip HEADER] [--rename HEADER=NAME] [--type HEADER=TYPE]
/// [--media HEADER] [--order HEADER=ORDER] [--decimal HEADER=SIGN] [--unit HEADER=UNIT]
/// [--replace] [--bundle PATH] [--dry-run]`: reads the file and stores it as a library of the
/// database, all of it with its media or nothing. Shows its names, the types of its columns, and
/// what cannot be read in them.
ExitCode runImportCommand(const QStringList &arguments, CommandContext &context);
