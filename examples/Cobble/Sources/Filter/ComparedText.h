#pragma once

#include <QString>

namespace ComparedText {
/// A text without the differences that a comparison passes over.
/// \param passesOver "c" for those of case, "d" for accents and width, "cd" for all, "" for none.
QString of(const QString &text, const QString &passesOver = QStringLiteral("cd"));

/// Whether a unit of text can stand in a bare name or in a word such as CONTAINS.
bool isOfWord(QChar unit);
} // namespace ComparedText
