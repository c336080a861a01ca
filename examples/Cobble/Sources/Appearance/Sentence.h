#pragma once

#include <QString>

// Reasons as windows show them.

namespace Sentence {
/// A reason with a capital letter before it and a full stop behind it, where it has none: commands
/// tell reasons behind a colon ("cobble: a.csv: the file is empty"), windows alone.
QString of(const QString &reason);
} // namespace Sentence
