#include "FolderNames_p.h"

#include "FolderStream_p.h"

#include <QFile>
#include <QFileInfo>

using namespace KTPrivate;

QStringList KTPrivate::filesNamed(const QString &folder, const QString &prefix,
                                  const QString &suffix)
{
    QStringList names;
    const FolderStream stream(::opendir(QFile::encodeName(folder).constData()));
    while (const dirent *const entry = stream ? ::readdir(stream.get()) : nullptr) {
        const QByteArray bytes(entry->d_name);
        const QString name = bytes.isValidUtf8() ? QString::fromUtf8(bytes) : QString();
        if (!name.isNull() && name.startsWith(prefix) && name.endsWith(suffix) &&
            QFileInfo(folder + u'/' + name).isFile())
            names += name;
    }
    names.sort();
    return names;
}
