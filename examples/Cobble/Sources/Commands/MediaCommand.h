#pragma once

#include "CommandContext.h"

/// `cobble media list|add FILE-OR-URL…|path URL…|delete NAME-OR-URL… [--bundle PATH]`: the files in
/// the bundle's media folder.
ExitCode runMediaCommand(const QStringList &arguments, CommandContext &context);

/// `cobble upgrade-copy [--bundle PATH]`: puts the bundle aside before an upgrade and prints where
/// the copy to upgrade is.
ExitCode runUpgradeCopyCommand(const QStringList &arguments, CommandContext &context);
