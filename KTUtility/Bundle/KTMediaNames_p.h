#pragma once

// What the bundle and the munger share: the names of stored media files.

#include <KTUtility/KTUtilityExport.h>

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace KTMediaNames {
/// Whether a text can be the name of a file in a folder: not empty, ".", or "..", and without "/"
/// and NUL.
KTUTILITY_EXPORT bool isFileName(const QString &name);

/// The path with \a comment as an extension before its own: "a/b.jpg" and "2" give "a/b.2.jpg".
KTUTILITY_EXPORT QString pathByAddingExtComment(const QString &path, const QString &comment);

/// The path without its last three extensions, but with its own again: "photo.3.jpg" and
/// "photo.3.orig.jpg" give "photo.jpg". Deliberate: a name with dots loses them, too.
KTUTILITY_EXPORT QString pathByRemovingExtComment(const QString &path);
} // namespace KTMediaNames

/// Looks for a number that no copy of a file has yet.
///
/// The number is the one that the search by steps gives: 0 to 3 one by one, then doubling from 4 up
/// to a free number, halving down to one that is taken, and up again one by one. The folder is
/// opened once; when many numbers in a row are taken, it is listed instead of being asked for each.
class KTUTILITY_EXPORT KTInstanceNumbers
{
public:
    /// For the file at \a path, whose copies are "name.N.extension" in its folder.
    explicit KTInstanceNumbers(const QString &path);
    ~KTInstanceNumbers();
    KTInstanceNumbers(const KTInstanceNumbers &) = delete;
    KTInstanceNumbers &operator=(const KTInstanceNumbers &) = delete;

    /// The number.
    /// \param willAsk is called with each number before it is looked for; may be empty.
    /// \return −1 if no number is free.
    int next(const std::function<void(int)> &willAsk = {});

private:
    bool exists(int number);
    bool existsInFolder(const char *name) const;
    int freeUpperBound(int *lower);
    int firstFree(int from, int to);
    void listFolder(int from, int to);
    std::optional<int> numberOf(const char *name) const;

    int _folder;
    QByteArray _prefix;
    QByteArray _suffix;
    // The name that was asked for last.
    QByteArray _name;
    std::function<void(int)> _willAsk;
    // What the listing said of the numbers from _firstListed on.
    int _firstListed = 0;
    std::vector<bool> _listed;
};
