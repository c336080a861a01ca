#include <KTUtility/Platform/Files/FileLock_p.h>

#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>

#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr int Patience = 2000;

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

void makeSocket(const QString &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const QByteArray name = encoded(path);
    ASSERT_LT(size_t(name.size()), sizeof(address.sun_path));
    std::copy(name.begin(), name.end(), address.sun_path);
    const int file = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    EXPECT_EQ(::bind(file, reinterpret_cast<const sockaddr *>(&address), sizeof(address)), 0);
    ::close(file);
}

/// Whether the lock is free now.
bool isFree(const QString &path)
{
    return FileLock(path, 0).isLocked();
}
} // namespace

TEST(FileLock, OneHasItAtATime)
{
    const QString path = useFreshHome() + u"/lock"_s;
    {
        const FileLock lock(path, 0);
        EXPECT_TRUE(lock.isLocked());
        EXPECT_TRUE(QFileInfo(path).isFile());
        EXPECT_FALSE(isFree(path));
    }
    EXPECT_FALSE(QFileInfo::exists(path)) << "nothing stays";
    EXPECT_TRUE(isFree(path));
}

TEST(FileLock, OthersAreWaitedForAsLongAsThePatienceLasts)
{
    const QString path = useFreshHome() + u"/lock"_s;
    const FileLock lock(path, 0);
    QElapsedTimer timer;
    timer.start();
    EXPECT_FALSE(FileLock(path, 200).isLocked());
    EXPECT_GE(timer.elapsed(), 190);
    EXPECT_LT(timer.elapsed(), 1500);
}

TEST(FileLock, WhateverTheFileHoldsItKeepsNobodyOut)
{
    const QString path = useFreshHome() + u"/lock"_s;
    const QByteArray contents[] = {"", "\n\n\n", QByteArray(100'000, '\xFF'),
                                   "1\ncobble\nlocalhost\n", "999999\nx\n\n"};
    for (const QByteArray &content : contents) {
        writeFile(path, content);
        QElapsedTimer timer;
        timer.start();
        EXPECT_TRUE(isFree(path)) << content.left(20).toStdString();
        EXPECT_LT(timer.elapsed(), 1000);
    }
}

TEST(FileLock, WhatIsNoFileIsNobodysLock)
{
    const QString home = useFreshHome();
    const QString path = home + u"/lock"_s;
    const QList<std::pair<const char *, std::function<void()>>> rows = {
        {"pipe", [&] { ASSERT_EQ(::mkfifo(encoded(path).constData(), 0600), 0); }},
        {"folder", [&] { ASSERT_TRUE(QDir().mkdir(path)); }},
        {"socket", [&] { makeSocket(path); }},
        {"link to nothing", [&] { ASSERT_TRUE(QFile::link(home + u"/none"_s, path)); }},
        {"loop", [&] { ASSERT_TRUE(QFile::link(path, path)); }},
        {"link", [&] { ASSERT_TRUE(QFile::link(home + u"/kept"_s, path)); }},
        {"full folder", [&] { writeFile(path + u"/inside"_s, "kept"); }},
    };
    writeFile(home + u"/kept"_s, "kept");
    for (const auto &[name, make] : rows) {
        make();
        QElapsedTimer timer;
        timer.start();
        const FileLock lock(path, Patience);
        EXPECT_TRUE(lock.isLocked()) << name;
        EXPECT_LT(timer.elapsed(), Patience) << name;
        EXPECT_TRUE(QFileInfo(path).isFile() && !QFileInfo(path).isSymLink()) << name;
    }
    EXPECT_EQ(contentsOf(home + u"/kept"_s), "kept");
    EXPECT_EQ(contentsOf(path + u".damaged/inside"_s), "kept");
    EXPECT_FALSE(QFileInfo::exists(home + u"/none"_s));
}

TEST(FileLock, WhereNoFileCanBeItIsNotWaitedFor)
{
    const QString home = useFreshHome();
    writeFile(home + u"/file"_s, "");
    QElapsedTimer timer;
    timer.start();
    for (const QString &path : {QString(home + u"/none/lock"), QString(home + u"/file/lock"),
                                QString(home + u'/' + QString(300, u'a')), QString()})
        EXPECT_FALSE(FileLock(path, Patience).isLocked()) << path.toStdString();
    EXPECT_LT(timer.elapsed(), Patience);
}

TEST(FileLock, ThatOfAProcessThatEndedIsFree)
{
    const QString path = useFreshHome() + u"/lock"_s;
    const OtherProcess owner([&]() -> int {
        const FileLock lock(path, 0);
        ::_exit(lock.isLocked() ? 0 : 1);
    });
    ASSERT_EQ(owner.exitCode(), 0);
    ASSERT_TRUE(QFileInfo::exists(path));
    EXPECT_TRUE(isFree(path));
}

TEST(FileLock, ManyProcessesTakeTurns)
{
    const QString home = useFreshHome();
    const QString path = home + u"/lock"_s;
    // The first thing that they find is no lock, which only one of them may remove.
    ASSERT_EQ(::mkfifo(encoded(path).constData(), 0600), 0);
    constexpr int Turns = 50;
    const auto count = [&] {
        for (int turn = 0; turn < Turns; ++turn) {
            const FileLock lock(path, 60'000);
            if (!lock.isLocked())
                return 1;
            const QByteArray counted = contentsOf(home + u"/count"_s);
            writeFile(home + u"/count"_s, QByteArray::number(counted.toInt() + 1));
        }
        return 0;
    };
    std::vector<std::unique_ptr<OtherProcess>> processes;
    for (int index = 0; index < 6; ++index)
        processes.push_back(std::make_unique<OtherProcess>(count));
    for (const auto &process : processes)
        EXPECT_EQ(process->exitCode(), 0);
    EXPECT_EQ(contentsOf(home + u"/count"_s).toInt(), 6 * Turns);
}
