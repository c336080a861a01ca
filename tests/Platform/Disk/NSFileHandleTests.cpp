#include <KTUtility/NSFileHandle>

#include "support/TestSupport.h"

#include <QTemporaryFile>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <thread>

using namespace Qt::StringLiterals;

TEST(NSFileHandle, WritesAtOnce)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"log"_s);
    NSFileHandle handle(
        ::open(path.toLocal8Bit().constData(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
    EXPECT_TRUE(handle.writeData("started\n"));
    EXPECT_EQ(testing_support::contentsOf(path), "started\n");
    EXPECT_TRUE(handle.writeData(""));
    EXPECT_TRUE(handle.writeData("more\n"));
    EXPECT_EQ(testing_support::contentsOf(path), "started\nmore\n");
}

TEST(NSFileHandle, DropsWhatCannotBeWritten)
{
    NSFileHandle none(-1);
    EXPECT_FALSE(none.writeData("lost"));
    EXPECT_TRUE(none.writeData(""));
    NSFileHandle full(::open("/dev/full", O_WRONLY | O_CLOEXEC));
    EXPECT_FALSE(full.writeData("lost"));
    EXPECT_FALSE(full.writeData("lost again"));
}

TEST(NSFileHandle, GoesOnAfterPartialWrites)
{
    // A pipe takes a part of a large write when its reader is slow.
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const QByteArray sent(1 << 20, 'x');
    qsizetype received = 0;
    std::thread reader([&] {
        std::array<char, 4096> buffer{};
        for (ssize_t count; (count = ::read(ends[0], buffer.data(), buffer.size())) > 0;)
            received += count;
    });
    {
        NSFileHandle handle(ends[1]);
        EXPECT_TRUE(handle.writeData(sent));
    }
    reader.join();
    ::close(ends[0]);
    EXPECT_EQ(received, sent.size());
}

TEST(NSFileHandle, ClosesOnlyWhatItOwns)
{
    const int descriptor = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    NSFileHandle(descriptor, NSFileHandle::Ownership::Borrowed).writeData("x");
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    {
        const NSFileHandle owner(descriptor);
        EXPECT_EQ(owner.fileDescriptor(), descriptor);
    }
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST(NSFileHandle, SynchronizesWhatIsOpen)
{
    QTemporaryFile file;
    ASSERT_TRUE(file.open());
    NSFileHandle handle(file.handle(), NSFileHandle::Ownership::Borrowed);
    EXPECT_TRUE(handle.writeData("text"));
    EXPECT_TRUE(handle.synchronizeFile());
    EXPECT_FALSE(NSFileHandle(-1).synchronizeFile());
}
