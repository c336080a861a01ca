#pragma once

#include "Outcome.h"

#include <QByteArray>
#include <QString>

/// Reading whole text files whose encoding nobody stated.
namespace TextFile {
/// Files above this size, in bytes, are rejected.
constexpr qint64 SizeLimit = qint64(1) << 30;

/// The text that \a data holds: UTF-8 with or without a byte order mark, or UTF-16 of either byte
/// order with one. The mark is not part of the text. It fails where the data is not in its encoding,
/// with the number of the line, or holds NUL characters.
///
/// Anything doubtful is rejected rather than guessed: a name read in the wrong encoding would be
/// stored wrong.
///
/// \code
/// TextFile::textOfData("Stra\xdf" "e\n").reason();    // "not a text file in UTF-8 (line 1)"
/// \endcode
Outcome<QString> textOfData(const QByteArray &data);

/// The text of the file at \a path, decoded as textOfData() does. It fails also where the file is
/// missing, a folder, unreadable or empty; the reason does not name the file.
Outcome<QString> textOfFile(const QString &path);
} // namespace TextFile
