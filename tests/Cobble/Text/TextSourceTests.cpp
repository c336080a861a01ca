#include "Text/TextSource.h"

#include "Text/TextEncodings.h"

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;
using testing_support::FileTree;

namespace {
/// All that a reader gives, or why it ends early.
Outcome<QString> textOf(const TextSource &source)
{
    TextReader reader = source.reader();
    QString text;
    while (true) {
        const Outcome<bool> isRead = reader.readMore(&text, 7);
        if (!isRead)
            return isRead.failure();
        if (!*isRead)
            return text;
    }
}

class TextSourceTests : public testing::Test
{
protected:
    Outcome<TextSource> open(const QByteArray &bytes, const QString &encoding = {})
    {
        tree.add(u"text.csv"_s, bytes);
        return TextSource::ofFile(tree.path(u"text.csv"_s), encoding);
    }

    FileTree tree;
};
} // namespace

TEST_F(TextSourceTests, AFileIsReadAsOftenAsItTakes)
{
    const Outcome<TextSource> source = open("one\ntwo\nthree ß\n");
    ASSERT_TRUE(source);
    for (int time = 0; time < 3; ++time)
        EXPECT_EQ(*textOf(*source), u"one\ntwo\nthree ß\n"_s);
    EXPECT_EQ(source->encoding(), u"UTF-8"_s);
}

TEST_F(TextSourceTests, ATextIsReadLikeAFile)
{
    const TextSource source(u"a,b\n1,2\nß"_s);
    EXPECT_EQ(*textOf(source), u"a,b\n1,2\nß"_s);
    EXPECT_EQ(*textOf(source), u"a,b\n1,2\nß"_s);
    EXPECT_TRUE(source.encoding().isNull());
}

TEST_F(TextSourceTests, EncodingsAreFoundToldAndGuessed)
{
    struct Row
    {
        QByteArray bytes;
        QString told;
        QString encoding;
        QString text;
    };
    const QByteArray german = "Stra\xdf"
                              "e in K\xf6ln und M\xfcnchen, f\xfcr sch\xf6ne Gr\xfc\xdf"
                              "e\n";
    const Row rows[] = {
        {"\xef\xbb\xbf"
         "a",
         {},
         u"UTF-8"_s,
         u"a"_s},
        {QByteArray("\xff\xfe"
                    "a\0",
                    4),
         {},
         u"UTF-16LE"_s,
         u"a"_s},
        {QByteArray("\xfe\xff\0a", 4), u"auto"_s, u"UTF-16BE"_s, u"a"_s},
        {"\xc3\x9f", u"auto"_s, u"UTF-8"_s, u"ß"_s},
        {"\xc3\x9f", u"windows-1252"_s, u"windows-1252"_s, u"ÃŸ"_s},
        {"\xa4", u"ISO-8859-15"_s, u"ISO-8859-15"_s, u"€"_s},
        {QByteArray("a\0", 2), u"UTF-16LE"_s, u"UTF-16LE"_s, u"a"_s},
        {german, u"auto"_s, u"windows-1252"_s, QString::fromLatin1(german)},
        // What tells may stand far behind.
        {QByteArray("plain\n").repeated(100'000) + german, u"auto"_s, u"windows-1252"_s,
         QString(u"plain\n"_s.repeated(100'000) + QString::fromLatin1(german))},
    };
    for (const Row &row : rows) {
        const Outcome<TextSource> source = open(row.bytes, row.told);
        ASSERT_TRUE(source) << source.reason().toStdString();
        EXPECT_EQ(source->encoding(), row.encoding);
        EXPECT_TRUE(textOf(*source).valueOr({}) == row.text) << row.encoding.toStdString();
    }
}

TEST_F(TextSourceTests, NothingIsGuessedUnlessItIsAskedFor)
{
    const Outcome<TextSource> source = open("a\nStra\xdf"
                                            "e\n");
    ASSERT_TRUE(source);
    EXPECT_EQ(textOf(*source).reason(), u"not a text file in UTF-8 (line 2)"_s);
}

TEST_F(TextSourceTests, SaysWhichLineIsNotInItsEncoding)
{
    const std::pair<QByteArray, qint64> texts[] = {
        {"\xff", 1}, {"a\r\nb\r\n\xff", 3}, {"a\r\rb\n\xff\n", 4}, {"12345\r\n7\xff", 2}};
    for (const auto &[bytes, line] : texts)
        EXPECT_EQ(textOf(*open(bytes)).reason(), u"not a text file in UTF-8 (line %1)"_s.arg(line));
    EXPECT_EQ(textOf(*open("a\n\x93", u"Shift_JIS"_s)).reason(),
              u"not a text file in Shift_JIS (line 2)"_s);
    EXPECT_EQ(textOf(*open(QByteArray("\xff\n\0", 3))).reason(), u"not a text file"_s);
}

TEST_F(TextSourceTests, AFileThatChangesIsAnError)
{
    const QString reason = u"the file was changed while it was read"_s;
    const Outcome<TextSource> source = open("one\ntwo\n");
    EXPECT_TRUE(textOf(*source));
    tree.add(u"text.csv"_s, "one\ntwo\nthree\n");
    EXPECT_EQ(textOf(*source).reason(), reason);
    // Also in the middle of a reading.
    const Outcome<TextSource> other = open("a long text\nof two lines\n");
    TextReader reader = other->reader();
    QString text;
    ASSERT_TRUE(reader.readMore(&text, 5));
    tree.add(u"text.csv"_s, "x\n");
    Outcome<bool> isRead = true;
    while (isRead && *isRead)
        isRead = reader.readMore(&text, 5);
    EXPECT_EQ(isRead.reason(), reason);
}

TEST_F(TextSourceTests, APipeIsReadAsOftenAsItTakes)
{
    const QString path = tree.path(u"pipe"_s);
    ASSERT_EQ(::mkfifo(path.toLocal8Bit().constData(), 0600), 0);
    std::thread writer([&] { testing_support::writeFile(path, "a,b\n1,2\n"); });
    const Outcome<TextSource> source = TextSource::ofFile(path);
    writer.join();
    ASSERT_TRUE(source);
    EXPECT_EQ(*textOf(*source), u"a,b\n1,2\n"_s);
    EXPECT_EQ(*textOf(*source), u"a,b\n1,2\n"_s);
}

TEST_F(TextSourceTests, AMarkIsNotContradicted)
{
    const QByteArray marked = "\xef\xbb\xbf"
                              "a";
    const QByteArray wide("\xff\xfe"
                          "a\0",
                          4);
    EXPECT_EQ(open(marked, u"windows-1252"_s).reason(),
              u"the file is marked as UTF-8, not windows-1252"_s);
    EXPECT_EQ(open(wide, u"UTF-8"_s).reason(), u"the file is marked as UTF-16LE, not UTF-8"_s);
    EXPECT_EQ(*textOf(*open(marked, u"UTF-8"_s)), u"a"_s);
    EXPECT_EQ(*textOf(*open(wide, u"UTF-16LE"_s)), u"a"_s);
}

TEST_F(TextSourceTests, GuessingIsGivenUp)
{
    const QByteArray text = QByteArray("0123456\n").repeated(1 << 18);
    for (const QByteArray &bytes : {text, QByteArray("Stra\xdf" + text)}) {
        tree.add(u"text.csv"_s, bytes);
        for (const int most : {0, 1}) {
            int asked = 0;
            const Outcome<TextSource> source = TextSource::ofFile(
                tree.path(u"text.csv"_s), TextEncodings::Automatic, [&] { return asked++ < most; });
            EXPECT_TRUE(source.isCancelled());
            EXPECT_EQ(asked, most + 1);
        }
    }
}

TEST_F(TextSourceTests, APipeIsGivenUp)
{
    const QString path = tree.path(u"pipe"_s);
    ASSERT_EQ(::mkfifo(path.toLocal8Bit().constData(), 0600), 0);
    std::thread writer([&] { testing_support::writeFile(path, "a,b\n1,2\n"); });
    const Outcome<TextSource> source = TextSource::ofFile(path, {}, [] { return false; });
    writer.join();
    EXPECT_TRUE(source.isCancelled());
}
