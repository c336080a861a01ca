#include <KTUtility/NSPropertyListSerialization>

#include "support/TestSupport.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariantMap &settings()
{
    static const QVariantMap map = {{u"rows"_s, 20LL}, {u"name"_s, u"Ada"_s}};
    return map;
}

/// While it lives, no file of this process grows beyond a size: the disk is full.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        _handler = std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &_before);
        const rlimit limit = {bytes, _before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &_before);
        std::signal(SIGXFSZ, _handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit _before = {};
    void (*_handler)(int) = nullptr;
};

QStringList filesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System |
                                  QDir::NoDotAndDotDot);
}

QByteArray bytesOf(const QString &path)
{
    return QFile::encodeName(path);
}
} // namespace

TEST(PropertyListFile, DictionariesComeBack)
{
    const QString home = useFreshHome();
    for (const bool atomically : {true, false}) {
        const QString path = home + u"/made/on the way/%1.plist"_s.arg(atomically);
        EXPECT_TRUE(NSDictionary::writeToFile(settings(), path, atomically));
        EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(path), settings());
        EXPECT_EQ(contentsOf(path), NSPropertyListSerialization::dataWithPropertyList(settings()));
    }
    EXPECT_EQ(filesIn(home + u"/made/on the way"_s).size(), 2);
}

TEST(PropertyListFile, WhatIsNoDictionaryIsNothing)
{
    const QString home = useFreshHome();
    const QString path = home + u"/a.plist"_s;
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(path), std::nullopt);
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(home), std::nullopt);
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("x"), QByteArray("bplist00"),
          QByteArray("<plist><true/></plist>"), QByteArray("<plist><array/></plist>"),
          QByteArray("<plist><dict>")}) {
        writeFile(path, bytes);
        EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(path), std::nullopt);
    }
    writeFile(path, "<plist><dict/></plist>");
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(path), QVariantMap());
}

TEST(PropertyListFile, PipesAndDevicesAreNotRead)
{
    const QString pipe = useFreshHome() + u"/pipe"_s;
    ASSERT_EQ(::mkfifo(bytesOf(pipe).constData(), 0600), 0);
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(pipe), std::nullopt);
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(u"/dev/zero"_s), std::nullopt);
}

TEST(PropertyListFile, OnlyFilesAreReplaced)
{
    const QString home = useFreshHome();
    const QString pipe = home + u"/pipe"_s;
    const QString folder = home + u"/folder"_s;
    ASSERT_EQ(::mkfifo(bytesOf(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkdir(folder));
    for (const bool atomically : {true, false}) {
        EXPECT_FALSE(NSDictionary::writeToFile(settings(), pipe, atomically));
        EXPECT_FALSE(NSDictionary::writeToFile(settings(), folder, atomically));
        EXPECT_FALSE(NSDictionary::writeToFile(settings(), u"/dev/full"_s, atomically));
    }
    struct stat status = {};
    ASSERT_EQ(::stat("/dev/full", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
    EXPECT_EQ(filesIn(home), (QStringList{u"folder"_s, u"pipe"_s}));
}

TEST(PropertyListFile, HostilePathsAndValuesAreRejected)
{
    const QString home = useFreshHome();
    const QString path = home + u"/a.plist"_s;
    writeFile(path, "old");
    for (const bool atomically : {true, false}) {
        for (const QString &hostile :
             {QString(), u""_s, QString(path + QChar(0)), QString(home + u'/' + QChar(0xD800)),
              QString(path + u"/below a file"), QString(home + u'/' + u"n"_s.repeated(300))})
            EXPECT_FALSE(NSDictionary::writeToFile(settings(), hostile, atomically));
        const QVariantMap unwritable = {{u"a"_s, QString(QChar(0))}};
        EXPECT_FALSE(NSDictionary::writeToFile(unwritable, path, atomically));
    }
    EXPECT_EQ(contentsOf(path), QByteArray("old"));
    EXPECT_EQ(filesIn(home), QStringList{u"a.plist"_s});
}

TEST(PropertyListFile, TheModeOfTheFileStays)
{
    const QString path = useFreshHome() + u"/a.plist"_s;
    for (const mode_t mode : {0600u, 0664u, 0640u}) {
        writeFile(path, "old");
        ASSERT_EQ(::chmod(bytesOf(path).constData(), mode), 0);
        EXPECT_TRUE(NSDictionary::writeToFile(settings(), path, true));
        struct stat status = {};
        ASSERT_EQ(::stat(bytesOf(path).constData(), &status), 0);
        EXPECT_EQ(status.st_mode & 0777, mode);
    }
}

TEST(PropertyListFile, ALinkToTheFileStaysALink)
{
    const QString home = useFreshHome();
    const QString link = home + u"/link.plist"_s;
    writeFile(home + u"/kept/file.plist"_s, "old");
    ASSERT_TRUE(QFile::link(home + u"/kept/file.plist"_s, link));
    EXPECT_TRUE(NSDictionary::writeToFile(settings(), link, true));
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(NSDictionary::dictionaryWithContentsOfFile(home + u"/kept/file.plist"_s), settings());
}

TEST(PropertyListFile, AFullDiskLeavesTheOldBytes)
{
    const QString home = useFreshHome();
    const QString path = home + u"/a.plist"_s;
    writeFile(path, "old");
    const QVariantMap large = {{u"a"_s, u"x"_s.repeated(100'000)}};
    {
        const FullDisk disk(1000);
        EXPECT_FALSE(NSDictionary::writeToFile(large, path, true));
    }
    EXPECT_EQ(contentsOf(path), QByteArray("old"));
    EXPECT_EQ(filesIn(home), QStringList{u"a.plist"_s});
    EXPECT_TRUE(NSDictionary::writeToFile(large, path, true));
}
