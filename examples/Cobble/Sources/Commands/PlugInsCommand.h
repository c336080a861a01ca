#pragma once

#include "CommandContext.h"

/// `cobble plugins [list|enable ID…|disable ID…]`: the plug-ins, what can be known of
/// them without running their code, and which are enabled.
ExitCode runPlugInsCommand(const QStringList &arguments, CommandContext &context);
