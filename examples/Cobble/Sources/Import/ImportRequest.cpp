#include "ImportRequest.h"

#include <QFileInfo>

/// The file's name without its extension; the whole name if nothing else is left.
QString ImportRequest::libraryNameForFile(const QString &path)
{
    const QFileInfo file(path);
    const QString name = file.completeBaseName();
    return name.isEmpty() ? file.fileName() : name;
}
