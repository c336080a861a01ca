#pragma once

#include <QByteArray>

namespace KTPrivate {
/// Copies a file, or a folder with all that it holds; see NSFileManager::copyItemAtPath().
bool copyItem(const QByteArray &path, const QByteArray &toPath);
} // namespace KTPrivate
