#pragma once

#include <QDir>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

namespace testing_support {
/// A temporary folder with the files that a row of a table asks for, as long as it lives.
///
/// "tree" are paths (folders end with "/"; a file's content is its path), "copies" numbered files,
/// and "cwd" says that the row is about the current folder. In texts "{root}" is the folder.
class FileTree
{
public:
    explicit FileTree(const QJsonObject &row = {});
    ~FileTree();

    /// A path in the folder.
    QString path(const QString &relative) const { return _root.filePath(relative); }
    QString root() const { return _root.path(); }
    /// Texts of the row, and how they are written there.
    QString inRoot(QString text) const
    {
        return text.replace(QStringLiteral("{root}"), _root.path());
    }
    QString outOfRoot(QString text) const
    {
        return text.replace(_root.path(), QStringLiteral("{root}"));
    }

    void add(const QString &relative, const QByteArray &contents = "x") const;
    /// Adds name, with %d replaced, for all numbers from first to last.
    void addCopies(const QString &pattern, int first, int last) const;
    /// What is in the folder now: path to content, folders and pipes to null.
    QJsonObject contents() const;

private:
    QTemporaryDir _root;
    QString _before;
};
} // namespace testing_support
