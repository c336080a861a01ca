#include <KTUtility/Platform/Files/FileTrust_p.h>

#include "support/EnvironmentGuard.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QFile>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr uid_t Stranger = 54'321;

QByteArray bytesOfPath(const QString &path)
{
    return QFile::encodeName(path);
}

void changeMode(const QString &path, mode_t mode)
{
    ASSERT_EQ(::chmod(bytesOfPath(path).constData(), mode), 0) << path.toStdString();
}

/// A home with a file some folders down.
class FileTrustTests : public testing::Test
{
protected:
    FileTrustTests() { writeFile(file, "code"); }

    const QString home = useFreshHome();
    const QString file = home + u"/a/b/file"_s;
};

struct stat statusWith(mode_t mode, uid_t user, gid_t group)
{
    struct stat status = {};
    status.st_mode = mode;
    status.st_uid = user;
    status.st_gid = group;
    return status;
}
} // namespace

TEST(FileTrust, WhatCountsIsWhoMayWrite)
{
    struct Row
    {
        mode_t mode;
        uid_t user;
        gid_t group;
        const char16_t *rejection;
    };
    constexpr gid_t NoGroup = 54'322;
    const Row rows[] = {
        {S_IFREG | 0755, 0, 0, nullptr},
        {S_IFREG | 0775, 0, 0, nullptr},
        {S_IFREG | 0644, Stranger, NoGroup, nullptr},
        {S_IFREG | 0664, Stranger, NoGroup, u"is writable by others"},
        {S_IFREG | 0664, 0, NoGroup, u"is writable by others"},
        {S_IFREG | 0646, Stranger, NoGroup, u"is writable by others"},
        {S_IFDIR | 01777, 0, 0, u"is writable by others"},
        {S_IFREG | 0644, Stranger + 1, 0, u"belongs to somebody else"},
        {S_IFREG | 0400, Stranger + 1, 0, u"belongs to somebody else"},
        {S_IFLNK | 0777, Stranger, NoGroup, nullptr},
        {S_IFLNK | 0777, Stranger + 1, NoGroup, u"belongs to somebody else"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(FileTrust::rejectionOf(statusWith(row.mode, row.user, row.group), Stranger),
                  QString::fromUtf16(row.rejection))
            << std::oct << row.mode << ' ' << std::dec << row.user;
}

TEST_F(FileTrustTests, AllFoldersUpToTheUsersOwnCount)
{
    EXPECT_TRUE(FileTrust::rejectionOfPath(file).isNull());
    for (const QString &place : {file, QString(home + u"/a/b"), QString(home + u"/a"), home}) {
        changeMode(place, 0777);
        EXPECT_EQ(FileTrust::rejectionOfPath(file), place + u" is writable by others");
        changeMode(place, 0755);
    }
    EXPECT_TRUE(FileTrust::rejectionOfPath(file).isNull());
}

TEST_F(FileTrustTests, WhatHoldsTheUsersFoldersDoesNot)
{
    const QString inner = home + u"/a"_s;
    changeMode(home, 0777);
    const EnvironmentGuard homeIsFurtherDown("HOME", bytesOfPath(inner));
    EXPECT_TRUE(FileTrust::rejectionOfPath(file).isNull());
    changeMode(inner, 0777);
    EXPECT_EQ(FileTrust::rejectionOfPath(file), inner + u" is writable by others");
}

TEST_F(FileTrustTests, TheDataFolderIsTheUsersOwn)
{
    const QString elsewhere = home + u"/elsewhere"_s;
    ASSERT_TRUE(QDir().mkdir(elsewhere));
    changeMode(home, 0777);
    const EnvironmentGuard homeIsElsewhere("HOME", bytesOfPath(elsewhere));
    EXPECT_TRUE(FileTrust::rejectionOfPath(file).isNull()) << "it holds the home folder";
    changeMode(home + u"/a"_s, 0777);
    EXPECT_EQ(FileTrust::rejectionOfPath(file), home + u"/a is writable by others");
    const EnvironmentGuard data("XDG_DATA_HOME", bytesOfPath(home + u"/a/b"));
    EXPECT_TRUE(FileTrust::rejectionOfPath(file).isNull());
}

TEST_F(FileTrustTests, LinksAreFollowedAsTheSystemDoes)
{
    struct Row
    {
        QString link;
        QString target;
        QString way;
    };
    const QString open = home + u"/open"_s;
    ASSERT_TRUE(QDir().mkpath(open + u"/inner"_s));
    const Row rows[] = {
        {home + u"/link1"_s, file, home + u"/link1"_s},
        {home + u"/link2"_s, home + u"/a"_s, home + u"/link2/b/file"_s},
        {home + u"/link3"_s, u"a/b"_s, home + u"/link3/../b/./file"_s},
        {open + u"/link4"_s, u"../a"_s, open + u"/link4//b/file"_s},
        {home + u"/link5"_s, open + u"/link4"_s, home + u"/link5/b/file"_s},
        {home + u"/link6"_s, open + u"/inner"_s, home + u"/link6/../link4/b/file"_s},
    };
    for (const Row &row : rows) {
        ASSERT_EQ(::symlink(bytesOfPath(row.target).constData(), bytesOfPath(row.link).constData()),
                  0);
        EXPECT_TRUE(FileTrust::rejectionOfPath(row.way).isNull()) << row.way.toStdString();
        changeMode(home + u"/a"_s, 0777);
        EXPECT_EQ(FileTrust::rejectionOfPath(row.way), home + u"/a is writable by others");
        changeMode(home + u"/a"_s, 0755);
    }
    changeMode(open, 0777);
    for (const Row &row : rows)
        EXPECT_EQ(FileTrust::rejectionOfPath(row.way).isNull(),
                  !row.way.contains(u"link4") && !row.way.contains(u"link5"))
            << row.way.toStdString();
}

TEST_F(FileTrustTests, WhatLeadsNowhereIsNotTrusted)
{
    ASSERT_TRUE(QFile::link(home + u"/loop"_s, home + u"/loop"_s));
    EXPECT_EQ(FileTrust::rejectionOfPath(home + u"/loop/file"_s),
              home + u"/loop/file leads through too many links");
    EXPECT_TRUE(FileTrust::rejectionOfPath(home + u"/none"_s).startsWith(home + u"/none: "));
}

TEST_F(FileTrustTests, WhatBelongsToSomebodyElseIsNotTrusted)
{
    // Only an administrator can give files away; for others, somebody else looks at theirs.
    const bool isRoot = ::geteuid() == 0;
    const uid_t user = isRoot ? ::geteuid() : Stranger;
    if (isRoot) {
        ASSERT_EQ(::chown(bytesOfPath(home + u"/a"_s).constData(), Stranger, 0), 0);
    }
    EXPECT_EQ(FileTrust::rejectionOfPath(file, user),
              (isRoot ? home + u"/a" : file) + u" belongs to somebody else");
    if (isRoot) {
        EXPECT_TRUE(FileTrust::rejectionOfPath(file, Stranger).isNull()) << "his, and root's";
    }
}
