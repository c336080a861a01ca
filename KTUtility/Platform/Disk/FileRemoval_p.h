#pragma once

// Private to the library. For removing files and whole folders.

#include <QByteArray>

namespace KTPrivate {
/// Removes a file, a link, or a folder with all that it holds; signals do not stop it.
/// \return false if there is nothing, or if something could not be removed.
bool removeItem(const QByteArray &path);
} // namespace KTPrivate
