#pragma once

#include <KTUtility/NSURL>

#include <QString>

#include <optional>

// What in a file that is imported names a media file: a path (from the folder of the imported file
// on), a "file" or "http" URL, or the URL of a file that is in the media folder already.

namespace MediaReference {
/// The URL that a text names, "file", "http" or "cobblemedia".
/// \param folder where relative paths begin.
/// \return nothing if it names none. Whether there is a file, and whether it may be taken, is not
/// looked at.
std::optional<NSURL> urlIn(const QString &text, const QString &folder);
} // namespace MediaReference
