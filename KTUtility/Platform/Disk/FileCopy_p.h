#pragma once

// Private to the library. For copying files and whole folders.

#include <QByteArray>

namespace KTPrivate {
/// Copies a file, or a folder with all that it holds; see NSFileManager::copyItemAtPath().
bool copyItem(const QByteArray &path, const QByteArray &toPath);
} // namespace KTPrivate
