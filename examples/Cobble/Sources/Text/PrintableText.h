#pragma once

#include <QString>

// Texts for lines that people read.

/// \a text with control characters and those that change the direction of writing shown as escapes
/// ("\n", "\u202e"), so that text from a file neither breaks a line nor steers the terminal.
QString printableText(const QString &text);

/// "1 record", "2 records".
QString recordCountText(qint64 count);
