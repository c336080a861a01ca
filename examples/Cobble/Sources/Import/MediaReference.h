#pragma once

#include <KTUtility/NSURL>

#include <QString>

#include <optional>

// What in a file that is imported names a media file: a path (from the folder of the imported file
// on), a "file" or "http" URL, or the URL of a file that is in the media folder already.

namespace MediaReference {
/// The URL that a text names, "file", "http" or "cobblemedia".
/// \param folder where relative paths begin.
/// \return nothing if it names none. Whether there is a file is not looked at.
std::optional<NSURL> urlIn(const QString &text, const QString &folder);

/// Whether a text alone shows that it is media: a "file" or media URL, an "http" URL that ends as
/// pictures, sounds, films and documents do, or the path of a file that exists.
bool isObvious(const QString &text, const QString &folder);
} // namespace MediaReference
