#pragma once

// How media files come into a folder: whole, flushed, and never over another file.

#include <QByteArray>
#include <QString>

#include <functional>

/// A file or folder that is made under a temporary name in the folder where it will stay, and gets
/// its own name when it is whole. What never gets one is removed.
class KTStagedFile
{
public:
    explicit KTStagedFile(const QString &folder);
    ~KTStagedFile();
    KTStagedFile(const KTStagedFile &) = delete;
    KTStagedFile &operator=(const KTStagedFile &) = delete;

    /// Fills a new file.
    /// \return false if it cannot be written.
    bool write(const QByteArray &data);
    /// Makes a copy; see NSFileManager::copyItemAtPath().
    bool copy(const QString &source);

    /// Gives it its name: \a path, and if that is taken by then, what \a anotherPath gives. The name
    /// is on the disk then, too.
    /// \return the path that it got; nil if it got none.
    QString place(const QString &path, const std::function<QString()> &anotherPath);

private:
    bool flush() const;
    QString placedAt(const QString &path);

    QString _path;
};
