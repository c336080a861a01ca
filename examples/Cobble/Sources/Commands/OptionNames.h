#pragma once

#include <QString>

// The options that several commands have, by the names that people type.

inline const QString HelpOption = QStringLiteral("help");
inline const QString JSONOption = QStringLiteral("json");
inline const QString ScreenshotOption = QStringLiteral("screenshot");
inline const QString ToOption = QStringLiteral("to");
