#pragma once

// Private to the library. For the defaults, and for what keeps defaults of its own: the files of
// persistent domains.

#include "PropertyListFile_p.h"

#include <QString>
#include <QVariantMap>

#include <functional>

namespace KTPrivate::DefaultsFile {
/// The folder of the files; nil if the user has no Library folder.
QString folder();
/// The path of a domain's file; nil if there is no folder.
QString path(const QString &domain);

/// What the file holds.
DictionaryReading read(const QString &domain);

/// Changes the file under its lock: reads it, lets \a change change it, and writes it. A damaged
/// file is moved aside first.
/// \return false if it is locked for more than two seconds, cannot be read or written, or is
/// damaged and cannot be moved aside.
bool update(const QString &domain, const std::function<void(QVariantMap &)> &change);

/// Removes the file.
/// \return false if it is still there, or if there is no folder.
bool remove(const QString &domain);
} // namespace KTPrivate::DefaultsFile
