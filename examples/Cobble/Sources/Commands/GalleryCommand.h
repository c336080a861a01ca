#pragma once

#include "CommandContext.h"

/// `cobble gallery --screenshot DIR`: draws what the framework draws, each helper into a file of
/// its own, and a page of all of them. The process needs an application with windows; see
/// makeHostApplication().
ExitCode runGalleryCommand(const QStringList &arguments, CommandContext &context);
