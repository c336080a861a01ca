#pragma once

// What the functions on files share.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

/// Whether a text can be the path of a file. Lone surrogates have no bytes, and would become the
/// name of another file.
inline bool NSCanBePath(const QString &path)
{
    return !path.isEmpty() && path.isValidUtf16() && !path.contains(QChar(u'\0'));
}

/// Renames a file or folder unless the new name is taken.
/// \return 0, or the error number: EEXIST if it is taken.
KTUTILITY_EXPORT int NSRenameWithoutReplacing(const QByteArray &path, const QByteArray &toPath);

/// The same for file systems that cannot rename so: takes the new name with an empty file or folder
/// first, and replaces that.
KTUTILITY_EXPORT int NSRenameOverPlaceholder(const QByteArray &path, const QByteArray &toPath);
