#include "Text/TextFile.h"

#include "support/TestSupport.h"

#include <QDir>

#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {
/// What is read of a file that holds these bytes.
Outcome<QString> textOfData(const QByteArray &data)
{
    const QString path = testing_support::useFreshHome() + u"/data.txt";
    testing_support::writeFile(path, data);
    return TextFile::textOfFile(path);
}

QString decodedText(const char *bytes, qsizetype size)
{
    const Outcome<QString> text = textOfData(QByteArray(bytes, size));
    EXPECT_TRUE(text) << text.reason().toStdString();
    return text.valueOr(QString());
}

QString reasonForData(const QByteArray &data)
{
    return textOfData(data).reason();
}

QString reasonForFile(const QString &path)
{
    return TextFile::textOfFile(path).reason();
}

QByteArray utf16Of(const QString &text, bool isBigEndian)
{
    QByteArray data(isBigEndian ? "\xfe\xff" : "\xff\xfe", 2);
    for (const QChar character : text) {
        const char low = char(character.unicode() & 0xff);
        const char high = char(character.unicode() >> 8);
        data += isBigEndian ? high : low;
        data += isBigEndian ? low : high;
    }
    return data;
}

#define DECODED(literal) decodedText(literal, sizeof(literal) - 1)
} // namespace

TEST(TextFile, ReadsUtf8)
{
    EXPECT_EQ(DECODED("abc"), u"abc"_s);
    EXPECT_EQ(DECODED("\xc3\xa9\xe5\x85\xac\xf0\x9f\x98\x80"), u"é公😀"_s);
}

TEST(TextFile, TheByteOrderMarkIsNoText)
{
    EXPECT_EQ(DECODED("\xef\xbb\xbf"
                      "abc"),
              u"abc"_s);
    EXPECT_EQ(DECODED("\xff\xfe"
                      "a\0b\0"),
              u"ab"_s);
    EXPECT_EQ(DECODED("\xfe\xff"
                      "\0a\0b"),
              u"ab"_s);
}

TEST(TextFile, ASecondMarkIsText)
{
    EXPECT_EQ(DECODED("\xef\xbb\xbf\xef\xbb\xbf"
                      "a"),
              u"\ufeff"
              "a"_s);
}

TEST(TextFile, NothingAndAMarkAloneAreEmptyTexts)
{
    for (const QByteArray data : {"", "\xef\xbb\xbf", "\xff\xfe", "\xfe\xff"})
        EXPECT_EQ(reasonForData(data), u"the file is empty"_s);
}

TEST(TextFile, EveryTextIsReadBackInEachEncoding)
{
    for (const QString &text : testing_support::hostileTexts()) {
        if (!text.isValidUtf16() || text.contains(QChar::Null))
            continue;
        EXPECT_TRUE(textOfData(text.toUtf8()).valueOr({}) == text);
        EXPECT_TRUE(textOfData(utf16Of(text, true)).valueOr({}) == text);
        EXPECT_TRUE(textOfData(utf16Of(text, false)).valueOr({}) == text);
    }
}

TEST(TextFile, NamesTheLineThatIsNotUtf8)
{
    const QString reason = u"not a text file in UTF-8 (line %1)"_s;
    EXPECT_EQ(reasonForData("\xff"), reason.arg(1));
    EXPECT_EQ(reasonForData("a\nb\n\xe9t\xe9\n"), reason.arg(3));
    EXPECT_EQ(reasonForData("a\r\nb\rc\n\nStra\xdf"
                            "e"),
              reason.arg(5));
    EXPECT_EQ(reasonForData("\xef\xbb\xbf"
                            "a\n\x80"),
              reason.arg(2));
}

TEST(TextFile, DoubtfulUtf8IsRejected)
{
    const QByteArrayList sequences = {"\xc0\xaf",         // overlong
                                      "\xe0\x80\xaf",     // overlong
                                      "\xed\xa0\x80",     // half of a surrogate pair
                                      "\xf4\x90\x80\x80", // above the last code point
                                      "\xe5\x85",         // cut off
                                      "\xf8\x88\x80\x80\x80"};
    for (const QByteArray &sequence : sequences)
        EXPECT_EQ(reasonForData("a\n" + sequence), u"not a text file in UTF-8 (line 2)"_s);
}

TEST(TextFile, NulBytesAreNoText)
{
    EXPECT_EQ(reasonForData(QByteArray("a\0b", 3)), u"not a text file"_s);
    EXPECT_EQ(reasonForData(QByteArray("\x7f"
                                       "ELF\0\xff",
                                       6)),
              u"not a text file"_s);
    // Also UTF-16 without a mark, and UTF-32 with one.
    EXPECT_EQ(reasonForData(QByteArray("a\0b\0", 4)), u"not a text file"_s);
    EXPECT_EQ(reasonForData(QByteArray("\xff\xfe\0\0a\0\0\0", 8)), u"not a text file"_s);
}

TEST(TextFile, NamesTheLineThatIsNotUtf16)
{
    const QString reason = u"not a text file in UTF-16 (line %1)"_s;
    const QString text = u"a\nb"_s;
    for (const bool isBigEndian : {true, false}) {
        EXPECT_EQ(reasonForData(utf16Of(text + QChar(0xD800), isBigEndian)), reason.arg(2));
        EXPECT_EQ(reasonForData(utf16Of(QChar(0xDC00) + text, isBigEndian)), reason.arg(1));
        EXPECT_EQ(reasonForData(utf16Of(text, isBigEndian) + 'x'), reason.arg(2));
    }
}

TEST(TextFile, ReadsFiles)
{
    const QString path = testing_support::useFreshHome() + u"/Café 公司.csv";
    testing_support::writeFile(path, "a,b\r\n");
    EXPECT_EQ(*TextFile::textOfFile(path), u"a,b\r\n"_s);
}

TEST(TextFile, FilesOfSeveralChunks)
{
    const QString path = testing_support::useFreshHome() + u"/long.csv";
    // Three bytes a character, so that chunks end within characters.
    const QByteArray bytes = QByteArray("\xe5\x85\xac").repeated(1 << 20);
    testing_support::writeFile(path, bytes);
    EXPECT_TRUE(TextFile::textOfFile(path).valueOr({}).toUtf8() == bytes);
}

TEST(TextFile, TellsWhyAFileCannotBeRead)
{
    const QString home = testing_support::useFreshHome();
    EXPECT_EQ(reasonForFile(home + u"/missing.csv"), u"No such file or directory"_s);
    EXPECT_EQ(reasonForFile(home), u"is a folder, not a file"_s);
    testing_support::writeFile(home + u"/empty.csv", QByteArray());
    EXPECT_EQ(reasonForFile(home + u"/empty.csv"), u"the file is empty"_s);
    testing_support::writeFile(home + u"/mark.csv", "\xef\xbb\xbf");
    EXPECT_EQ(reasonForFile(home + u"/mark.csv"), u"the file is empty"_s);
    EXPECT_EQ(reasonForFile(home + u"/empty.csv/x.csv"), u"Not a directory"_s);
    EXPECT_FALSE(reasonForFile(QString()).isNull());
}

TEST(TextFile, AReadErrorIsNotTheEnd)
{
    // It can be opened, but nothing can be read at its beginning.
    EXPECT_EQ(reasonForFile(u"/proc/self/mem"_s), u"Input/output error"_s);
}

TEST(TextFile, ADeviceWithoutAnEndIsRejected)
{
    EXPECT_EQ(reasonForFile(u"/dev/zero"_s), u"not a text file"_s);
}

TEST(TextFile, ReadsPipes)
{
    const QString path = testing_support::useFreshHome() + u"/pipe";
    ASSERT_EQ(::mkfifo(path.toLocal8Bit().constData(), 0600), 0);
    std::thread writer([&] { testing_support::writeFile(path, "a,b\n1,2\n"); });
    const QString text = *TextFile::textOfFile(path);
    writer.join();
    EXPECT_EQ(text, u"a,b\n1,2\n"_s);
}
