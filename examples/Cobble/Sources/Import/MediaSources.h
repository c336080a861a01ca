#pragma once

#include "Text/Outcome.h"

#include <KTUtility/NSURL>

#include <QSet>
#include <QStringList>

/// Which files the texts of an imported file may bring along.
///
/// A file that somebody has sent must not decide what is read from this disk, or which server is
/// called. So texts stand for files beside the imported one (in its folder itself, not hidden, and
/// no links that lead elsewhere), for what an importer has taken out of it, and for files that the
/// bundle has. Only in columns that the user has named do they stand for any file, and for "http"
/// URLs.
///
/// \code
/// MediaSources sources(u"/home/ann/letters"_s);
/// sources.urlIn(2, u"photo.jpg"_s);         // file:///home/ann/letters/photo.jpg
/// sources.urlIn(2, u"~/.netrc"_s);          // fails
/// sources.trust(2);
/// sources.urlIn(2, u"http://a/b.jpg"_s);    // http://a/b.jpg
/// \endcode
class MediaSources
{
public:
    /// No file that is copied is larger, in bytes.
    static constexpr qint64 LargestFile = qint64(256) << 20;

    /// \param folder that of the imported file, where relative paths begin.
    explicit MediaSources(const QString &folder = {});

    /// The folder of the imported file.
    const QString &folder() const { return _folder; }
    /// Files in this folder, too, were part of the imported file.
    void addFolder(const QString &folder);
    /// Texts of a column may name what they like.
    void trust(qsizetype column) { _trusted += column; }
    const QSet<qsizetype> &trustedColumns() const { return _trusted; }

    /// The URL that a text in a column names, "file", "http" or "cobblemedia", if it may.
    Outcome<NSURL> urlIn(qsizetype column, const QString &text) const;
    /// Whether a text shows that it is media in any column: the URL of a file of the bundle, or
    /// what names a file beside the imported one that there is.
    bool isObvious(const QString &text) const;

    /// Whether a file can be read: it is there, and no folder, pipe or device.
    static Outcome<> checkFile(const QString &path);
    /// Whether a file can be copied: it can be read, and is not larger than LargestFile.
    static Outcome<> check(const QString &path);
    /// Whether a file can have a name, which must not be too long.
    static Outcome<> checkName(const QString &name);

private:
    bool isBeside(const QString &path) const;

    QString _folder;
    /// Without links on the way to them.
    QStringList _folders;
    QSet<qsizetype> _trusted;
};
