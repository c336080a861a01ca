#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QString>

// The keys of the logger's settings file.

/// "writeToFile": whether messages go to the log file (true when missing) or to the console.
KTUTILITY_EXPORT extern const QString KTLoggerWriteToFileKey;
/// "displayFileLine": whether console lines carry source file and line (false when missing).
KTUTILITY_EXPORT extern const QString KTLoggerDisplayFileLineKey;
/// "components": component name to level; missing when no component was ever set.
KTUTILITY_EXPORT extern const QString KTLoggerComponentsKey;
