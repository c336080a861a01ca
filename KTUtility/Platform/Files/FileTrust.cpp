#include "FileTrust_p.h"

#include "NSBundle.h"
#include "NSPathUtilities.h"
#include "NSSearchPath.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cstring>
#include <grp.h>
#include <optional>
#include <pwd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Whether a group is that of one user: it has his name, and nobody was put into it.
bool isOwnGroup(gid_t group, uid_t user)
{
    // What does not fit has members.
    std::array<char, 4096> userTexts{};
    std::array<char, 4096> groupTexts{};
    passwd userEntry = {};
    ::group groupEntry = {};
    passwd *knownUser = nullptr;
    ::group *knownGroup = nullptr;
    ::getpwuid_r(user, &userEntry, userTexts.data(), userTexts.size(), &knownUser);
    ::getgrgid_r(group, &groupEntry, groupTexts.data(), groupTexts.size(), &knownGroup);
    return knownUser && knownGroup && std::strcmp(knownUser->pw_name, knownGroup->gr_name) == 0 &&
           !knownGroup->gr_mem[0];
}

/// What is passed on the way to a file.
struct Way
{
    QStringList folders;
    QStringList links;
    QString end;
};

/// What a link names; nil if the path is no link.
QString targetOfLink(const QString &path)
{
    std::array<char, 4096> target{};
    const ssize_t size =
        ::readlink(QFile::encodeName(path).constData(), target.data(), target.size());
    return size <= 0 ? QString() : QFile::decodeName(QByteArray(target.data(), size));
}

QString entryIn(const QString &folder, const QString &name)
{
    return folder == u"/" ? QString(u'/' + name) : QString(folder + u'/' + name);
}

/// Goes to a file as the system does: link by link, "..", too, from where a link has led.
/// Nothing if there are too many links.
std::optional<Way> wayTo(const QString &path)
{
    constexpr qsizetype MostLinks = 40;
    // Not cleaned: ".." behind a link is not the folder before it.
    const QString start = path.startsWith(u'/') ? QString() : QString(QDir::currentPath() + u'/');
    QStringList names = QString(start + path).split(u'/', Qt::SkipEmptyParts);
    Way way{{u"/"_s}, {}, u"/"_s};
    while (!names.isEmpty() && way.links.size() <= MostLinks) {
        const QString name = names.takeFirst();
        const QString entry = name == u".."  ? NSString::stringByDeletingLastPathComponent(way.end)
                              : name == u"." ? way.end
                                             : entryIn(way.end, name);
        const QString target = targetOfLink(entry);
        if (target.isNull()) {
            way.end = entry;
            way.folders += entry;
            continue;
        }
        way.links += entry;
        way.end = target.startsWith(u'/') ? u"/"_s : way.end;
        names = target.split(u'/', Qt::SkipEmptyParts) + names;
    }
    return names.isEmpty() ? std::optional(way) : std::nullopt;
}

/// Whether a path is a folder or lies in it.
bool isIn(const QString &path, const QString &folder)
{
    return path == folder || folder == u"/" || path.startsWith(folder + u'/');
}

/// The folders that are the user's own, links resolved.
QStringList ownFolders()
{
    QStringList folders =
        NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, true);
    folders += NSHomeDirectory();
    for (QString &folder : folders)
        folder = QFileInfo(folder).canonicalFilePath();
    folders.removeAll(QString());
    return folders;
}

/// Whether a folder counts. What holds the user's folders or this library is the administrator's,
/// or there are other ways than plug-ins to do harm from there.
bool isLookedAt(const QString &folder, const QStringList &own)
{
    const QString library = QFileInfo(NSBundle::frameworkBundle().bundlePath()).absolutePath();
    const auto holdsIt = [&](const QString &each) { return isIn(folder, each); };
    const auto isAbove = [&](const QString &each) { return isIn(each, folder); };
    return std::any_of(own.begin(), own.end(), holdsIt) ||
           (!isIn(library, folder) && std::none_of(own.begin(), own.end(), isAbove));
}

QString rejectionOfEntry(const QString &path, uid_t user)
{
    struct stat status = {};
    if (::lstat(QFile::encodeName(path).constData(), &status) != 0)
        return path + u": "_s + qt_error_string(errno);
    const QString rejection = FileTrust::rejectionOf(status, user);
    return rejection.isNull() ? rejection : QString(path + u' ' + rejection);
}
} // namespace

QString FileTrust::rejectionOf(const struct stat &status, uid_t user)
{
    if (status.st_uid != 0 && status.st_uid != user)
        return u"belongs to somebody else"_s;
    // All may write a link, and that means nothing.
    if (S_ISLNK(status.st_mode))
        return {};
    const bool groupMayWrite =
        (status.st_mode & S_IWGRP) != 0 && status.st_gid != 0 && !isOwnGroup(status.st_gid, user);
    return (status.st_mode & S_IWOTH) != 0 || groupMayWrite ? u"is writable by others"_s
                                                            : QString();
}

QString FileTrust::rejectionOfPath(const QString &path, uid_t user)
{
    const std::optional<Way> way = wayTo(path);
    if (!way)
        return path + u" leads through too many links"_s;
    const QStringList own = ownFolders();
    QStringList entries;
    for (const QString &folder : way->folders) {
        if (isLookedAt(folder, own))
            entries += folder;
    }
    for (const QString &link : way->links) {
        if (isLookedAt(NSString::stringByDeletingLastPathComponent(link), own))
            entries += link;
    }
    // The nearest to the file first.
    QString rejection;
    for (auto entry = entries.crbegin(); rejection.isNull() && entry != entries.crend(); ++entry)
        rejection = rejectionOfEntry(*entry, user);
    return rejection;
}
