#include "FileTree.h"

#include "TestSupport.h"

#include <QDirIterator>
#include <QJsonArray>

using namespace Qt::StringLiterals;

namespace testing_support {
FileTree::FileTree(const QJsonObject &row)
{
    const QJsonArray paths = row.value(u"tree"_s).toArray();
    for (const QJsonValue path : paths)
        add(path.toString(), path.toString().toUtf8());
    const QJsonObject copies = row.value(u"copies"_s).toObject();
    const QJsonArray ranges = copies.value(u"ranges"_s).toArray();
    for (const QJsonValue range : ranges)
        addCopies(copies.value(u"path"_s).toString(), range[0].toInt(), range[1].toInt());
    if (row.value(u"cwd"_s).toBool()) {
        _before = QDir::currentPath();
        QDir::setCurrent(root());
    }
}

FileTree::~FileTree()
{
    if (!_before.isNull())
        QDir::setCurrent(_before);
}

void FileTree::add(const QString &relative, const QByteArray &contents) const
{
    if (relative.endsWith(u'/'))
        QDir().mkpath(path(relative));
    else
        writeFile(path(relative), contents);
}

void FileTree::addCopies(const QString &pattern, int first, int last) const
{
    for (int number = first; number <= last; ++number) {
        const QString name = QString(pattern).replace(u"%d"_s, QString::number(number));
        add(name, name.toUtf8());
    }
}

QJsonObject FileTree::contents() const
{
    QJsonObject found;
    QDirIterator items(root(),
                       QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                       QDirIterator::Subdirectories);
    while (items.hasNext()) {
        const QFileInfo item(items.next());
        const bool isFolderOrPipe = item.exists() && !item.isFile();
        found.insert(QDir(root()).relativeFilePath(item.filePath()),
                     isFolderOrPipe ? QJsonValue()
                                    : QJsonValue(QString::fromUtf8(contentsOf(item.filePath()))));
    }
    return found;
}
} // namespace testing_support
