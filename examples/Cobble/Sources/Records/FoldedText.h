#pragma once

#include <QString>

/// A text without the differences that a search passes over: those of case, accents and width.
///
/// \code
/// foldedText(u"CÉLINE"_s); // "celine"
/// \endcode
QString foldedText(const QString &text);
