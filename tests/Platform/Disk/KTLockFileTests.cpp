#include <KTUtility/KTLockFile>

#include "support/FileTree.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace testing_support;

using Result = KTLockFile::Result;

namespace {
class KTLockFileTests : public testing::Test
{
protected:
    bool isThere() const { return QFileInfo(path).exists() || QFileInfo(path).isSymLink(); }

    FileTree tree;
    QString path = tree.path(u"lock"_s);
};

/// What may lie where the file is to be.
struct ThingRow
{
    const char *name;
    std::function<void(const FileTree &tree, const QString &path)> make;
};

void PrintTo(const ThingRow &row, std::ostream *stream)
{
    *stream << row.name;
}

const QList<ThingRow> &things()
{
    static const QList<ThingRow> rows{
        {"Empty", [](const FileTree &, const QString &path) { writeFile(path, ""); }},
        {"Noise", [](const FileTree &, const QString &path) { writeFile(path, "\xff\0\n??"); }},
        {"ProcessThatIsGone",
         [](const FileTree &, const QString &path) {
             writeFile(path, "999999999\ncobble\nhost\n");
         }},
        {"ThisProcess",
         [](const FileTree &, const QString &path) {
             writeFile(path, QByteArray::number(::getpid()) + "\nKTUtilityTests\nhost\n");
         }},
        {"LinkToNothing", [](const FileTree &tree,
                             const QString &path) { QFile::link(tree.path(u"none"_s), path); }},
        {"LinkToAFile", [](const FileTree &tree,
                           const QString &path) { QFile::link(tree.path(u"diary"_s), path); }},
        {"Loop", [](const FileTree &, const QString &path) { QFile::link(path, path); }},
        {"Pipe", [](const FileTree &,
                    const QString &path) { ::mkfifo(QFile::encodeName(path).constData(), 0600); }},
        {"EmptyFolder", [](const FileTree &, const QString &path) { QDir().mkdir(path); }},
    };
    return rows;
}

class KTLockFileThings : public KTLockFileTests, public testing::WithParamInterface<ThingRow>
{
};
} // namespace

TEST_F(KTLockFileTests, IsAnEmptyFileThatGoesWithIt)
{
    KTLockFile lock(path);
    EXPECT_EQ(lock.path(), path);
    EXPECT_FALSE(lock.isLocked());
    lock.unlock();
    EXPECT_EQ(lock.lock(0), Result::Locked);
    EXPECT_EQ(lock.lock(0), Result::Locked);
    EXPECT_TRUE(lock.isLocked());
    EXPECT_EQ(QFileInfo(path).size(), 0);
    EXPECT_TRUE(isThere());
    lock.unlock();
    EXPECT_FALSE(lock.isLocked());
    EXPECT_FALSE(isThere());
}

TEST_F(KTLockFileTests, OneOwnerHasItAtATime)
{
    KTLockFile second(path);
    {
        KTLockFile first(path);
        ASSERT_EQ(first.lock(0), Result::Locked);
        EXPECT_EQ(second.lock(0), Result::Taken);
        EXPECT_EQ(second.lock(30), Result::Taken);
        EXPECT_FALSE(second.isLocked());
        EXPECT_TRUE(isThere());
    }
    EXPECT_EQ(second.lock(0), Result::Locked);
}

TEST_F(KTLockFileTests, AProcessThatEndedLeavesNone)
{
    const OtherProcess killed([this] {
        // It never ends as it should.
        auto *const lock = new KTLockFile(path);
        return lock->lock(0) == Result::Locked ? 0 : 1;
    });
    EXPECT_EQ(killed.exitCode(), 0);
    EXPECT_TRUE(isThere());
    KTLockFile lock(path);
    EXPECT_EQ(lock.lock(0), Result::Locked);
    lock.unlock();
    EXPECT_FALSE(isThere());
}

TEST_F(KTLockFileTests, WaitsForAnotherProcess)
{
    int toOther[2];
    int fromOther[2];
    ASSERT_EQ(::pipe(toOther) + ::pipe(fromOther), 0);
    const OtherProcess other([&] {
        KTLockFile lock(path);
        char byte = lock.lock(0) == Result::Locked ? '1' : '0';
        const bool isTold = ::write(fromOther[1], &byte, 1) == 1;
        return isTold && ::read(toOther[0], &byte, 1) == 1 ? 0 : 1;
    });
    char answer = 0;
    ASSERT_EQ(::read(fromOther[0], &answer, 1), 1);
    EXPECT_EQ(answer, '1');
    KTLockFile lock(path);
    EXPECT_EQ(lock.lock(0), Result::Taken);
    ASSERT_EQ(::write(toOther[1], "x", 1), 1);
    EXPECT_EQ(lock.lock(60'000), Result::Locked);
    EXPECT_EQ(other.exitCode(), 0);
    for (const int end : {toOther[0], toOther[1], fromOther[0], fromOther[1]})
        ::close(end);
}

TEST_F(KTLockFileTests, LocksThatNameTheirProcessCountWhileTheyAreHeld)
{
    QLockFile other(path);
    other.setStaleLockTime(0);
    KTLockFile lock(path);
    ASSERT_TRUE(other.tryLock(0));
    EXPECT_EQ(lock.lock(0), Result::Taken);
    other.unlock();
    EXPECT_EQ(lock.lock(0), Result::Locked);
    EXPECT_FALSE(other.tryLock(0));
}

TEST_F(KTLockFileTests, ManyOwnersNeverHaveItTogether)
{
    const QString counter = tree.path(u"counter"_s);
    writeFile(counter, "0");
    // The first thing that they find is no lock, which only one of them may remove.
    ASSERT_EQ(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
    constexpr int Rounds = 50;
    const auto count = [&] {
        for (int round = 0; round < Rounds; ++round) {
            KTLockFile lock(path);
            if (lock.lock(60'000) != Result::Locked)
                return 1;
            writeFile(counter, QByteArray::number(contentsOf(counter).toInt() + 1));
        }
        return 0;
    };
    const OtherProcess first(count);
    const OtherProcess second(count);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(first.exitCode() + second.exitCode(), 0);
    EXPECT_EQ(contentsOf(counter), QByteArray::number(3 * Rounds));
}

TEST_F(KTLockFileTests, AFolderWithFilesIsInTheWay)
{
    writeFile(path + u"/file", "kept");
    KTLockFile lock(path);
    EXPECT_EQ(lock.lock(0), Result::Blocked);
    EXPECT_FALSE(lock.isLocked());
    EXPECT_EQ(contentsOf(path + u"/file"), "kept");
}

TEST_F(KTLockFileTests, NeedsAFolder)
{
    KTLockFile lock(tree.path(u"none/lock"_s));
    EXPECT_EQ(lock.lock(0), Result::Failed);
    for (const QString &text : hostileTexts()) {
        if (!text.isEmpty() && text.isValidUtf16() && !text.contains(u'\0') && text.size() < 200)
            continue;
        KTLockFile hostile(text);
        EXPECT_EQ(hostile.lock(0), Result::Failed);
        EXPECT_FALSE(hostile.isLocked());
    }
}

TEST_P(KTLockFileThings, StopNobody)
{
    tree.add(u"diary"_s, "dear diary");
    GetParam().make(tree, path);
    KTLockFile lock(path);
    EXPECT_EQ(lock.lock(0), Result::Locked);
    EXPECT_TRUE(QFileInfo(path).isFile());
    EXPECT_FALSE(QFileInfo(path).isSymLink());
    KTLockFile second(path);
    EXPECT_EQ(second.lock(0), Result::Taken);
    lock.unlock();
    EXPECT_EQ(tree.contents().keys(), QStringList(u"diary"_s));
    EXPECT_EQ(contentsOf(tree.path(u"diary"_s)), "dear diary");
}

INSTANTIATE_TEST_SUITE_P(Rows, KTLockFileThings, testing::ValuesIn(things()),
                         [](const testing::TestParamInfo<ThingRow> &row) {
                             return row.param.name;
                         });
