#pragma once

#include <QByteArray>
#include <QString>

/// Reading whole text files whose encoding nobody stated.
namespace TextFile {
/// Files above this size, in bytes, are refused.
constexpr qint64 SizeLimit = qint64(1) << 30;

/// The text that \a data holds: UTF-8 with or without a byte order mark, or UTF-16 of either byte
/// order with one. The mark is not part of the text.
/// \param errorDescription if not null, set to the reason when the result is nil: the data is not
/// in its encoding, with the number of the line, or holds NUL characters.
///
/// Anything doubtful is refused rather than guessed: a name read in the wrong encoding would be
/// stored wrong.
///
/// \code
/// QString reason;
/// const QString text = TextFile::textOfData("Stra\xdf" "e\n", &reason);
/// // text is nil, reason is "not a text file in UTF-8 (line 1)"
/// \endcode
QString textOfData(const QByteArray &data, QString *errorDescription = nullptr);

/// The text of the file at \a path, decoded as textOfData() does.
/// \return nil if it is missing, a folder, unreadable, empty or not text; \a errorDescription then
/// tells which, without naming the file.
QString textOfFile(const QString &path, QString *errorDescription = nullptr);
} // namespace TextFile
