#pragma once

#include <QString>

// Texts for cells of tables.

namespace ShortText {
/// More letters than these are not shown.
inline constexpr qsizetype Longest = 300;

/// The first line of a text, with "…" behind it if there is more.
QString firstLine(const QString &text);
} // namespace ShortText
