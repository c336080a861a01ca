// Packs made, taken apart, and damaged in every place.

#include "InputPack.h"

#include "support/TestSupport.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {
/// How the file of two inputs looks.
const QByteArray twoInputs("\x01\0\0\0a\x02\0\0\0bc", 11);

QString reasonOf(const QByteArray &bytes)
{
    QString reason;
    EXPECT_FALSE(InputPack::fromBytes(bytes, &reason));
    return reason;
}
} // namespace

TEST(InputPack, WritesLengthsAndBytes)
{
    EXPECT_EQ(InputPack({"a", "bc"}).bytes(), twoInputs);
}

TEST(InputPack, ReadsWhatItWrites)
{
    const QList<QByteArray> inputs = {QByteArray("", 0), QByteArray("\0", 1), QByteArray("\0\0", 2),
                                      QByteArray(70'000, 'x'), QByteArray("\xff", 1)};
    const auto pack = InputPack::fromBytes(InputPack(inputs).bytes());
    ASSERT_TRUE(pack);
    EXPECT_EQ(pack->inputs(), inputs);
}

TEST(InputPack, IsTheSameInWhateverOrderInputsCome)
{
    EXPECT_EQ(InputPack({"bc", "a"}).bytes(), twoInputs);
}

TEST(InputPack, HoldsEachInputOnce)
{
    EXPECT_EQ(InputPack({"a", "bc", "a", "bc"}).bytes(), twoInputs);
}

TEST(InputPack, SortsBytesAsNumbersWithoutSign)
{
    EXPECT_EQ(InputPack({"\xff", "\x7f"}).inputs(), (QList<QByteArray>{"\x7f", "\xff"}));
}

TEST(InputPack, HasLengthsWithTheLowestByteFirst)
{
    EXPECT_EQ(InputPack({QByteArray(0x10203, 'x')}).bytes().left(4),
              QByteArray("\x03\x02\x01\0", 4));
}

TEST(InputPack, ReportsThatItIsEmpty)
{
    EXPECT_EQ(reasonOf({}), u"The pack is empty."_s);
}

TEST(InputPack, HoldsTheEmptyInput)
{
    const auto pack = InputPack::fromBytes(QByteArray(4, '\0'));
    ASSERT_TRUE(pack);
    EXPECT_EQ(pack->inputs(), QList<QByteArray>{QByteArray()});
}

TEST(InputPack, ReportsWhereItIsCutOff)
{
    for (qsizetype length = 1; length < twoInputs.size(); ++length) {
        if (length == 5)
            continue; // there the first input ends
        SCOPED_TRACE(length);
        EXPECT_EQ(reasonOf(twoInputs.left(length)),
                  u"The pack ends within input %1."_s.arg(length < 5 ? 0 : 1));
    }
}

TEST(InputPack, ReportsLengthsBeyondItsEnd)
{
    EXPECT_EQ(reasonOf("\xff\xff\xff\xff"), u"The pack ends within input 0."_s);
    EXPECT_EQ(reasonOf("\xff\xff\xff\x7f"
                       "abc"),
              u"The pack ends within input 0."_s);
}

TEST(InputPack, ReportsNothingToThoseWhoDoNotAsk)
{
    EXPECT_FALSE(InputPack::fromBytes("abc"));
    EXPECT_FALSE(InputPack::fromFile(u"/nowhere/csv.pack"_s));
}

TEST(InputPack, ReportsAFileThatIsMissing)
{
    QString reason;
    EXPECT_FALSE(InputPack::fromFile(u"/nowhere/csv.pack"_s, &reason));
    EXPECT_TRUE(reason.startsWith(u"/nowhere/csv.pack: "_s)) << reason.toStdString();
}

TEST(InputPack, IsWrittenToAFileAndReadAgain)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.pack"_s);
    testing_support::writeFile(path, "of old, and longer than what comes");
    EXPECT_TRUE(InputPack({"bc", "a"}).writeFile(path));
    EXPECT_EQ(testing_support::contentsOf(path), twoInputs);
    const auto pack = InputPack::fromFile(path);
    ASSERT_TRUE(pack);
    EXPECT_EQ(pack->inputs(), (QList<QByteArray>{"a", "bc"}));
}

TEST(InputPack, IsUnpackedIntoAFolderAndPackedAgain)
{
    const QTemporaryDir parent;
    const QString folder = parent.filePath(u"corpora/csv"_s);
    const InputPack pack({"bc", "a", ""});
    ASSERT_TRUE(pack.writeFolder(folder));
    EXPECT_EQ(QDir(folder).entryList(QDir::Files).size(), 3);
    const auto again = InputPack::fromFolder(folder);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->bytes(), pack.bytes());
}

TEST(InputPack, NamesFilesByTheirContentAsLibFuzzerDoes)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(InputPack({"abc"}).writeFolder(folder.path()));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files),
              QStringList(u"a9993e364706816aba3e25717850c26c9cd0d89d"_s));
}

TEST(InputPack, ReportsAFolderWithoutInputs)
{
    const QTemporaryDir folder;
    QString reason;
    EXPECT_FALSE(InputPack::fromFolder(folder.path(), &reason));
    EXPECT_EQ(reason, folder.path() + u" holds no input."_s);
}

TEST(InputPack, SaysThatItCannotBeWritten)
{
    EXPECT_FALSE(InputPack({"a"}).writeFile(u"/nowhere/csv.pack"_s));
    EXPECT_FALSE(InputPack({"a"}).writeFolder(u"/proc/nowhere"_s));
}
