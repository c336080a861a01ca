// The injector itself: it sees the calls of all libraries, and fails the right one.

#include "FaultInjector.h"

#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>

#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
class FaultInjectorTests : public testing::Test
{
protected:
    FaultInjectorTests() : home(testing_support::useFreshHome()) {}

    QByteArray path(const char *name) const { return QFile::encodeName(home) + '/' + name; }
    int create(const char *name) const
    {
        const int file = ::open(path(name).constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        const int error = errno;
        if (file >= 0)
            ::close(file);
        errno = error;
        return file;
    }

    QString home;
};
} // namespace

TEST_F(FaultInjectorTests, RunsItsExample)
{
    int number = 1;
    const auto save = [this] {
        return NSDictionary::writeToFile({{u"a"_s, 1}}, home + u"/a.plist", true);
    };
    for (;; ++number) {
        bool isSaved = false;
        const auto outcome =
            FaultInjector::during(home, Fault::NoSpace, number, [&] { isSaved = save(); });
        EXPECT_EQ(isSaved, QFile::exists(home + u"/a.plist"));
        if (!outcome.wasHit)
            break;
        QFile::remove(home + u"/a.plist");
    }
    EXPECT_GT(number, 3);
}

TEST_F(FaultInjectorTests, FailsTheCallThatIsAskedFor)
{
    int first = 0;
    int second = 0;
    int error = 0;
    const auto outcome = FaultInjector::during(home, Fault::NoAccess, 2, [&] {
        first = create("one");
        second = create("two");
        error = errno;
    });
    EXPECT_GE(first, 0);
    EXPECT_EQ(second, -1);
    EXPECT_EQ(error, EACCES);
    EXPECT_TRUE(outcome.wasHit);
    EXPECT_EQ(outcome.call, FileCall::Create);
    EXPECT_EQ(outcome.seen[size_t(FileCall::Create)], 2);
    EXPECT_GE(create("two"), 0) << "it is over";
}

TEST_F(FaultInjectorTests, LooksAtOneFolderAndOneThread)
{
    const auto outcome = FaultInjector::during(home + u"/inner", Fault::InputOutput, 1, [this] {
        EXPECT_GE(create("one"), 0);
        EXPECT_TRUE(QDir(u"/"_s).exists());
    });
    EXPECT_FALSE(outcome.wasHit);
    int made = -1;
    FaultInjector::during(home, Fault::InputOutput, 1,
                          [&] { std::thread([&] { made = create("two"); }).join(); });
    EXPECT_GE(made, 0);
}

TEST_F(FaultInjectorTests, AFullDiskTakesHalfAndNothingMore)
{
    QFile file(home + u"/file");
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    ssize_t first = 0;
    ssize_t second = 0;
    FaultInjector::during(home, Fault::DiskFull, 1, [&] {
        first = ::write(file.handle(), "12345678", 8);
        second = ::write(file.handle(), "5678", 4);
    });
    EXPECT_EQ(first, 4);
    EXPECT_EQ(second, -1);
    EXPECT_EQ(testing_support::contentsOf(home + u"/file"), "1234");
}

TEST_F(FaultInjectorTests, AShortReadGivesHalfAndTheRestAtTheNextOne)
{
    testing_support::writeFile(home + u"/file", "12345678");
    QFile file(home + u"/file");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    std::array<char, 8> bytes{};
    ssize_t first = 0;
    ssize_t second = 0;
    const auto outcome = FaultInjector::during(home, Fault::ShortRead, 1, [&] {
        first = ::read(file.handle(), bytes.data(), bytes.size());
        second = ::read(file.handle(), bytes.data() + 4, bytes.size());
    });
    EXPECT_EQ(outcome.call, FileCall::Read);
    EXPECT_EQ(first, 4);
    EXPECT_EQ(second, 4);
    EXPECT_EQ(QByteArray(bytes.data(), 8), "12345678");
}

TEST_F(FaultInjectorTests, ACloseThatFailsClosesAllTheSame)
{
    const int file = ::open(path("file").constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    ASSERT_GE(file, 0);
    int result = 0;
    int error = 0;
    const auto outcome = FaultInjector::during(home, Fault::InputOutput, 1, [&] {
        result = ::close(file);
        error = errno;
    });
    EXPECT_EQ(outcome.call, FileCall::Close);
    EXPECT_EQ(result, -1);
    EXPECT_EQ(error, EIO);
    EXPECT_EQ(::fcntl(file, F_GETFD), -1);
}

TEST_F(FaultInjectorTests, SeesWhatQtDoes)
{
    QDir().mkpath(home + u"/folder");
    const auto outcome = FaultInjector::during(home, Fault::ShortWrite, 1000, [this] {
        QSaveFile file(home + u"/folder/file");
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write("text"), 4);
        EXPECT_TRUE(file.commit());
        EXPECT_EQ(QDir(home + u"/folder").entryList(QDir::Files).size(), 1);
        EXPECT_TRUE(QFile::remove(home + u"/folder/file"));
        EXPECT_TRUE(QDir().mkdir(home + u"/other"));
    });
    for (const FileCall call :
         {FileCall::Create, FileCall::Write, FileCall::Flush, FileCall::Rename, FileCall::Remove,
          FileCall::MakeFolder, FileCall::Status, FileCall::List, FileCall::Close})
        EXPECT_GT(outcome.seen[size_t(call)], 0) << nameOf(call);
}

TEST_F(FaultInjectorTests, WhatThrowsDisarmsIt)
{
    EXPECT_THROW(FaultInjector::during(home, Fault::InputOutput, 1, [] { throw 1; }), int);
    EXPECT_GE(create("one"), 0);
}
