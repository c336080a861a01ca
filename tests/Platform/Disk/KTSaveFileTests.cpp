#include <KTUtility/KTSaveFile>

#include "support/TestSupport.h"

#include <QDir>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
mode_t modeOf(const QString &path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(QFile::encodeName(path).constData(), &status), 0);
    return status.st_mode & 07777;
}

bool save(const QString &path, const QByteArray &bytes)
{
    KTSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
}

/// All names in a folder, hidden ones too.
QStringList namesIn(const QTemporaryDir &folder)
{
    return QDir(folder.path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}
} // namespace

TEST(KTSaveFile, RunsItsExample)
{
    const QTemporaryDir folder;
    KTSaveFile file(folder.filePath(u"report.csv"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write("a,b\n"), 4);
    EXPECT_FALSE(QFileInfo::exists(file.fileName()));
    EXPECT_TRUE(file.commit());
    EXPECT_EQ(contentsOf(file.fileName()), "a,b\n");
    EXPECT_EQ(namesIn(folder), QStringList{u"report.csv"_s});
}

TEST(KTSaveFile, KeepsTheOldPermissions)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"settings"_s);
    for (const mode_t mode : {0600, 0640, 0644, 0664, 0700, 0755}) {
        writeFile(path, "old");
        ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), mode), 0);
        EXPECT_TRUE(save(path, "new"));
        EXPECT_EQ(contentsOf(path), "new");
        EXPECT_EQ(modeOf(path), mode);
    }
}

TEST(KTSaveFile, GivesNewFilesWhatTheProcessGivesThem)
{
    const QTemporaryDir folder;
    const mode_t before = ::umask(0027);
    EXPECT_TRUE(save(folder.filePath(u"new"_s), "new"));
    ::umask(before);
    EXPECT_EQ(modeOf(folder.filePath(u"new"_s)), mode_t(0640));
}

TEST(KTSaveFile, WritesTheFileThatALinkLeadsTo)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"file"_s);
    writeFile(path, "old");
    ASSERT_EQ(::chmod(QFile::encodeName(path).constData(), 0600), 0);
    const QString link = folder.filePath(u"link"_s);
    ASSERT_TRUE(QFile::link(path, link));
    EXPECT_TRUE(save(link, "new"));
    EXPECT_EQ(contentsOf(path), "new");
    EXPECT_TRUE(QFileInfo(link).isSymLink());
    EXPECT_EQ(modeOf(path), mode_t(0600));
}

TEST(KTSaveFile, RejectsWhatIsNoPlaceForAFile)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"folder"_s));
    writeFile(folder.filePath(u"file"_s), "old");
    const QString circle = folder.filePath(u"circle"_s);
    ASSERT_TRUE(QFile::link(circle, circle));
    for (const QString &name : {u"folder"_s, u"missing/file"_s, u"file/below"_s, u"circle"_s}) {
        KTSaveFile file(folder.filePath(name));
        EXPECT_FALSE(file.open(QIODevice::WriteOnly)) << name.toStdString();
        EXPECT_FALSE(file.errorString().isEmpty());
    }
    EXPECT_EQ(contentsOf(folder.filePath(u"file"_s)), "old");
    EXPECT_EQ(namesIn(folder).size(), 3);
}

TEST(KTSaveFile, LeavesTheOldFileUntilItIsCommitted)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"file"_s);
    writeFile(path, "old");
    {
        KTSaveFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("half of");
        file.flush();
        EXPECT_EQ(contentsOf(path), "old");
    }
    EXPECT_EQ(contentsOf(path), "old");
    EXPECT_EQ(namesIn(folder), QStringList{u"file"_s});

    KTSaveFile cancelled(path);
    ASSERT_TRUE(cancelled.open(QIODevice::WriteOnly));
    cancelled.write("new");
    cancelled.cancelWriting();
    EXPECT_FALSE(cancelled.commit());
    EXPECT_EQ(contentsOf(path), "old");
    EXPECT_EQ(namesIn(folder), QStringList{u"file"_s});
}
