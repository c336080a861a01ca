// Files found by the beginning and the end of their names.

#include <KTUtility/Platform/Disk/FolderNames_p.h>

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdio>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A folder with files, one with a name that is no text, a folder and links.
struct Folder
{
    Folder()
    {
        for (const char *const name : {"b.plist", "a.plist", "a.txt", ".plist", "caf\xE9.plist"}) {
            const QByteArray path = QFile::encodeName(folder.path()) + '/' + name;
            std::unique_ptr<FILE, int (*)(FILE *)> stream(std::fopen(path.constData(), "w"),
                                                          std::fclose);
            paths += path;
        }
        QDir(folder.path()).mkdir(u"c.plist"_s);
        QFile::link(folder.filePath(u"a.txt"_s), folder.filePath(u"d.plist"_s));
        QFile::link(folder.filePath(u"nothing"_s), folder.filePath(u"e.plist"_s));
    }

    ~Folder()
    {
        for (const QByteArray &path : std::as_const(paths))
            ::unlink(path.constData()); // QTemporaryDir cannot remove all of them.
    }

    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;

    QTemporaryDir folder;
    QByteArrayList paths;
};
} // namespace

TEST(FolderNames, AreThoseOfFilesInTheirOrder)
{
    const Folder folder;
    const QString path = folder.folder.path();
    EXPECT_EQ(filesNamed(path, QString(), u".plist"_s),
              (QStringList{u".plist"_s, u"a.plist"_s, u"b.plist"_s, u"d.plist"_s}));
    EXPECT_EQ(filesNamed(path, u"a."_s, QString()), (QStringList{u"a.plist"_s, u"a.txt"_s}));
    EXPECT_EQ(filesNamed(path, u"x"_s, QString()), QStringList());
}

TEST(FolderNames, AreNoneWithoutAFolder)
{
    EXPECT_EQ(filesNamed(u"/nowhere"_s, QString(), QString()), QStringList());
    EXPECT_EQ(filesNamed(QString(), QString(), QString()), QStringList());
}
