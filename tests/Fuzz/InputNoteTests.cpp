#include "InputNote.h"

#include "FuzzTarget.h"
#include "support/OtherProcess.h"
#include "support/TestSupport.h"

#include <sys/mman.h>

using testing_support::OtherProcess;

namespace {
/// What a process that breaks a promise writes to standard error, which goes into memory: a disk may
/// be full.
QByteArray lastWordsOf(const std::function<void()> &action)
{
    const int memory = ::memfd_create("standard error", MFD_CLOEXEC);
    const OtherProcess process([memory, &action] {
        ::dup2(memory, STDERR_FILENO);
        action();
        return 0;
    });
    EXPECT_EQ(process.exitCode(), -1) << "it should have been ended by abort()";
    QFile file;
    EXPECT_TRUE(file.open(memory, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    EXPECT_TRUE(file.seek(0));
    return file.readAll();
}
} // namespace

TEST(InputNote, SaysAtWhichInputAPromiseWasBroken)
{
    const QByteArray words = lastWordsOf([] {
        const InputNote note(3, 17);
        fuzzFailed("2 + 2 == 5", "file", 1);
    });
    EXPECT_TRUE(words.endsWith("broken: 2 + 2 == 5\ninput 3 of 17 bytes\n")) << words.data();
}

TEST(InputNote, IsSilentOnceTheInputIsThrough)
{
    const QByteArray words = lastWordsOf([] {
        {
            const InputNote note(3, 17);
        }
        fuzzFailed("2 + 2 == 5", "file", 1);
    });
    EXPECT_TRUE(words.endsWith("broken: 2 + 2 == 5\n")) << words.data();
}
