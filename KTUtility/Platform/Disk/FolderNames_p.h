#pragma once

// Private to the library. For what looks for files by their names.

#include <KTUtility/KTUtilityExport.h>

#include <QString>
#include <QStringList>

namespace KTPrivate {
/// The names of the files in a folder, of links to files too, that begin and end with these texts,
/// in their order. Names that are no text are passed over: newer versions of Qt end a listing at
/// the first of them.
KTUTILITY_EXPORT QStringList filesNamed(const QString &folder, const QString &prefix,
                                        const QString &suffix);
} // namespace KTPrivate
