#include "Commands/StandardStreams.h"

#include "support/TestSupport.h"

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {
int openedForWriting(const QString &path)
{
    return ::open(path.toLocal8Bit().constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
}
} // namespace

TEST(StandardStreams, WritesUtf8AndLeavesTheDescriptorOpen)
{
    const QString path = testing_support::useFreshHome() + u"/out";
    const int descriptor = openedForWriting(path);
    for (const char16_t *text : {u"Größe", u" 公司\n"}) {
        DescriptorStream output(descriptor);
        output.stream() << QStringView(text);
        EXPECT_TRUE(output.finish());
    }
    EXPECT_EQ(::close(descriptor), 0);
    EXPECT_EQ(testing_support::contentsOf(path), QByteArray("Größe 公司\n"));
}

TEST(StandardStreams, WritingNothingSucceeds)
{
    const int descriptor = openedForWriting(u"/dev/full"_s);
    DescriptorStream output(descriptor);
    EXPECT_TRUE(output.finish());
    ::close(descriptor);
}

TEST(StandardStreams, TellsOfAFullDisk)
{
    const int descriptor = openedForWriting(u"/dev/full"_s);
    DescriptorStream output(descriptor);
    output.stream() << "text";
    EXPECT_EQ(output.finish().reason(), u"No space left on device"_s);
    ::close(descriptor);
}

TEST(StandardStreams, TellsOfAFullDiskAlsoAfterMoreThanABuffer)
{
    const int descriptor = openedForWriting(u"/dev/full"_s);
    DescriptorStream output(descriptor);
    output.stream() << testing_support::megabyteOf(u"x"_s) << Qt::flush << "y";
    EXPECT_EQ(output.finish().reason(), u"No space left on device"_s);
    ::close(descriptor);
}

TEST(StandardStreams, TellsOfADescriptorForReading)
{
    const int descriptor = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    DescriptorStream output(descriptor);
    output.stream() << "text";
    EXPECT_EQ(output.finish().reason(), u"Bad file descriptor"_s);
    ::close(descriptor);
}

TEST(StandardStreams, DescriptorsAreLeftAloneWhenTheyAreThere)
{
    const int before = ::dup(STDERR_FILENO);
    ::close(before);
    reserveStandardDescriptors();
    const int after = ::dup(STDERR_FILENO);
    ::close(after);
    EXPECT_EQ(before, after);
}
