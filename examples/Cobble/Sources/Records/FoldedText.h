#pragma once

#include <QString>

/// A text without the differences that a search passes over: those of case, accents and width.
///
/// \code
/// foldedText(u"CÉLINE"_s); // "celine"
/// \endcode
QString foldedText(const QString &text);

/// A text without the differences of accents and width. Time and memory are proportional to its
/// length, whatever marks it has.
///
/// \code
/// textWithoutAccents(u"Céline"_s); // "Celine"
/// \endcode
QString textWithoutAccents(const QString &text);
