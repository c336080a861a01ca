#pragma once

#include "CommandContext.h"

/// `cobble plugins [list|enable ID…|disable ID…]`: the plug-ins, what became of them, and which
/// are enabled.
ExitCode runPlugInsCommand(const QStringList &arguments, CommandContext &context);
