#include "FaultScenario.h"

#include "support/TestSupport.h"

#include <QDirIterator>

FileState stateOf(const QString &folder)
{
    FileState state;
    QDirIterator entries(folder,
                         QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QString name = path.mid(folder.size() + 1);
        if (entries.fileInfo().isDir())
            state.insert(QString(name + u'/'), QByteArray());
        else
            state.insert(name,
                         testing_support::contentsOf(path).replace(folder.toUtf8(), "{home}"));
    }
    return state;
}
