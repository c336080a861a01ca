#pragma once

#include "Outcome.h"

#include <QString>

/// Reading whole text files whose encoding nobody stated.
namespace TextFile {
/// The text of the file at \a path: UTF-8 with or without a byte order mark, or UTF-16 of either
/// byte order with one. The mark is not part of the text. It fails where the file is missing, a
/// folder, unreadable, empty or larger than 1 GB, where it is not in its encoding, with the number of
/// the line, and where it holds NUL characters; the reason does not name the file.
///
/// Anything doubtful is rejected rather than guessed: a name read in the wrong encoding would be
/// stored wrong.
///
/// \param encoding what else it is in; see TextSource::ofFile().
///
/// \code
/// TextFile::textOfFile(path).reason();    // "not a text file in UTF-8 (line 1)"
/// \endcode
Outcome<QString> textOfFile(const QString &path, const QString &encoding = {});
} // namespace TextFile
