#pragma once

#include <QString>

// Texts that a spreadsheet would run as a formula when it opens a file of separated values, and the
// mark that keeps it from doing so: an apostrophe in front, which spreadsheets take for "text".

namespace FormulaText {
/// Whether a spreadsheet would take a text for a formula: it begins, apart from whitespace and what
/// cannot be seen, with "=", "@", or a sign that is not that of a number or a phone number. Wide forms count, too.
bool isFormula(const QString &text);

/// The text with the mark if it needs one; also if it looks like a marked one, so that what was
/// written can be told from what was typed.
QString marked(const QString &text);
/// What was marked: unmarked(marked(text)) is the text, whatever it is.
QString unmarked(const QString &text);
} // namespace FormulaText
