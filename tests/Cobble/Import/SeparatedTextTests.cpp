#include "Import/SeparatedText.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QStringList headersOf(const QString &text)
{
    const Outcome<SeparatedText> rows = SeparatedText::read(text);
    EXPECT_TRUE(rows) << rows.reason().toStdString();
    return rows ? rows->headers() : QStringList();
}

QStringList texts(std::initializer_list<const char16_t *> list)
{
    QStringList result;
    for (const char16_t *text : list)
        result += QString::fromUtf16(text);
    return result;
}
} // namespace

TEST(SeparatedText, TheExampleOfTheHeader)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"a;b\n1;2;3\n4\n"_s);
    EXPECT_EQ(source->headers(), texts({u"a", u"b", u""}));
    EXPECT_EQ(source->separator(), u';');
    EXPECT_EQ(source->rowCount(), 2);
    EXPECT_EQ(source->raggedRowCount(), 2);
    EXPECT_EQ(source->unclosedQuoteLine(), 0);
}

TEST(SeparatedText, HeadersAreKeptAsTyped)
{
    EXPECT_EQ(headersOf(u" First Name ,\"a\nb\",,\"\"\n"_s),
              texts({u" First Name ", u"a\nb", u"", u""}));
}

TEST(SeparatedText, HeadersAloneAreALibraryWithoutRows)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"a,b"_s);
    EXPECT_EQ(source->headers(), texts({u"a", u"b"}));
    EXPECT_EQ(source->rowCount(), 0);
    EXPECT_EQ(source->raggedRowCount(), 0);
}

TEST(SeparatedText, BlankLinesAreNoRows)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"\r\na,b\r\n\r\n1,2\r\n   \r\n"_s);
    EXPECT_EQ(source->headers(), texts({u"a", u"b"}));
    EXPECT_EQ(source->rowCount(), 1);
    EXPECT_EQ(source->raggedRowCount(), 0);
}

TEST(SeparatedText, TheDirectiveIsHonouredAndIsNoHeader)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"sep=|\na,b|c,d\n1|2\n"_s);
    EXPECT_EQ(source->separator(), u'|');
    EXPECT_EQ(source->headers(), texts({u"a,b", u"c,d"}));
    EXPECT_EQ(source->rowCount(), 1);
}

TEST(SeparatedText, TheSeparatorAskedForWinsOverTheDirective)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"sep=|\na,b|c\n"_s, u',');
    EXPECT_EQ(source->separator(), u',');
    EXPECT_EQ(source->headers(), texts({u"a", u"b|c"}));
}

TEST(SeparatedText, LinesAreCountedFromTheDirective)
{
    EXPECT_EQ(SeparatedText::read(u"sep=;\na;b\n1;\"2\n"_s)->unclosedQuoteLine(), 3);
    EXPECT_EQ(SeparatedText::read(u"a;b\n1;\"2\n"_s)->unclosedQuoteLine(), 2);
}

TEST(SeparatedText, ATextWithoutHeadersCannotBeImported)
{
    for (const QString &text : {QString(), u"\n\r\n\n"_s, u"  \n\t\n"_s, u"sep=;\n"_s}) {
        EXPECT_EQ(SeparatedText::read(text).reason(), u"there is nothing but blank lines"_s);
    }
}

TEST(SeparatedText, AsManyColumnsAsALibraryCanHave)
{
    const QString row = QString(RowSource::ColumnLimit - 1, u',');
    EXPECT_EQ(headersOf(row).size(), RowSource::ColumnLimit);
    EXPECT_EQ(headersOf(QString(u"a\n" + row)).size(), RowSource::ColumnLimit);
}

TEST(SeparatedText, MoreColumnsAreRejected)
{
    const QString row = QString(RowSource::ColumnLimit, u',');
    EXPECT_EQ(SeparatedText::read(row).reason(),
              u"line 1 has 2000 columns, more than the 1999 that a library can have"_s);
    EXPECT_EQ(SeparatedText::read(QString(u"a,b\n\n" + row)).reason(),
              u"line 3 has 2000 columns, more than the 1999 that a library can have"_s);
}

TEST(SeparatedText, HostileTextsGiveAnAnswer)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const Outcome<SeparatedText> source = SeparatedText::read(text);
        ASSERT_EQ(!source, text.trimmed().isEmpty());
        EXPECT_TRUE(!source || !source->headers().isEmpty());
    }
}

TEST(SeparatedText, HandsOverItsRowsAsOftenAsItIsAsked)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"sep=;\na;b\n1;\"x\ny\"\n\n2\n"_s);
    ASSERT_TRUE(source);
    for (int time = 0; time < 2; ++time) {
        QList<QStringList> rows;
        (void)source->whileRows([&rows](qint64 row, const QStringList &fields) {
            rows += fields;
            EXPECT_EQ(row, rows.size());
            return true;
        });
        EXPECT_EQ(rows, QList<QStringList>({texts({u"1", u"x\ny"}), texts({u"2"})}));
    }
}

TEST(SeparatedText, StopsWhenNoMoreRowsAreWanted)
{
    const Outcome<SeparatedText> source = SeparatedText::read(u"a\n1\n2\n3\n"_s);
    ASSERT_TRUE(source);
    qint64 last = 0;
    (void)source->whileRows([&last](qint64 row, const QStringList &) {
        last = row;
        return row < 2;
    });
    EXPECT_EQ(last, 2);
}

TEST(SeparatedText, KeepsItsText)
{
    // Also when it is moved and what it was made of is destroyed.
    const auto made = [] {
        QString text = u"a|b\n"_s;
        text += u"1|2\n";
        return std::make_unique<SeparatedText>(*SeparatedText::read(text));
    }();
    SeparatedText moved = std::move(*made);
    QStringList fields;
    (void)moved.whileRows([&fields](qint64, const QStringList &row) {
        fields = row;
        return true;
    });
    EXPECT_EQ(fields, texts({u"1", u"2"}));
    EXPECT_EQ(moved.separator(), u'|');
}

TEST(SeparatedText, MarksOfFormulasAreNoPartOfAValue)
{
    const Outcome<SeparatedText> source =
        SeparatedText::read(u"'=Head,'plain'\n'=1+1,'a\n''=1,\"'@x,y\"\n"_s);
    EXPECT_EQ(source->headers(), texts({u"=Head", u"'plain'"}));
    QList<QStringList> rows;
    (void)source->whileRows([&](qint64, const QStringList &fields) {
        rows += fields;
        return true;
    });
    EXPECT_EQ(rows, (QList<QStringList>{texts({u"=1+1", u"'a"}), texts({u"'=1", u"@x,y"})}));
}

TEST(SeparatedText, TextsOfManyBlocksAreReadLikeShortOnes)
{
    // Rows of all lengths, so that blocks end anywhere in them.
    QString text = u"sep=;\nnumber;text\n"_s;
    qint64 line = 3;
    QStringList expected;
    for (int row = 1; row <= 3000; ++row) {
        expected += u"x\"\n"_s + QString(row % 731, u'é');
        text += u"%1;\"x\"\"\n%2\"\r\n\n"_s.arg(row).arg(QString(row % 731, u'é'));
        line += 3;
    }
    text += u"last;\"open"_s;
    const Outcome<SeparatedText> source = SeparatedText::read(text);
    ASSERT_TRUE(source);
    EXPECT_EQ(source->rowCount(), 3001);
    EXPECT_EQ(source->unclosedQuoteLine(), line);
    bool isRight = true;
    EXPECT_TRUE(source->whileRows([&](qint64 row, const QStringList &fields) {
        isRight = isRight && fields.value(1) == expected.value(row - 1, u"open"_s) &&
                  (row == 3001 || fields.value(0).toLongLong() == row);
        return true;
    }));
    EXPECT_TRUE(isRight);
}

TEST(SeparatedText, ARowMayBeLongerThanManyBlocks)
{
    const QString field = QString(3'000'000, u'z');
    const Outcome<SeparatedText> source =
        SeparatedText::read(QString(u"a,b\n1,\"" + field + u"\"\n2,3\n"));
    ASSERT_TRUE(source);
    QList<qsizetype> sizes;
    EXPECT_TRUE(source->whileRows([&](qint64, const QStringList &fields) {
        sizes += fields.value(1).size();
        return true;
    }));
    EXPECT_EQ(sizes, QList<qsizetype>({3'000'000, 1}));
}

TEST(SeparatedText, WithoutHeadersTheFirstRowIsOneOfValues)
{
    const Outcome<SeparatedText> source =
        SeparatedText::read(TextSource(u"1,2\n3,4,5\n"_s), {std::nullopt, false});
    ASSERT_TRUE(source);
    EXPECT_EQ(source->headers(), QStringList({u"Column 1"_s, u"Column 2"_s, u""_s}));
    EXPECT_EQ(source->rowCount(), 2);
    EXPECT_EQ(source->raggedRowCount(), 1);
    QList<QStringList> rows;
    EXPECT_TRUE(source->whileRows([&](qint64, const QStringList &fields) {
        rows += fields;
        return true;
    }));
    EXPECT_EQ(rows.first(), QStringList({u"1"_s, u"2"_s}));
}

TEST(SeparatedText, ReadingCanBeCancelled)
{
    const Outcome<SeparatedText> source =
        SeparatedText::read(TextSource(u"a\n1\n"_s), {}, [] { return false; });
    EXPECT_TRUE(source.isCancelled());
}

TEST(SeparatedText, ColumnsCanBeLeftOutAndCalledOtherwise)
{
    SeparatedText source = *SeparatedText::read(u"a,b,c\n1,2,3\n4\n"_s);
    source.skip({1});
    source.rename(1, u"C"_s);
    EXPECT_EQ(source.headers(), QStringList({u"a"_s, u"C"_s}));
    EXPECT_EQ(source.selected(), QList<qsizetype>({0, 2}));
    QList<QStringList> rows;
    EXPECT_TRUE(source.whileRows([&](qint64, const QStringList &fields) {
        rows += fields;
        return true;
    }));
    EXPECT_EQ(rows, QList<QStringList>({{u"1"_s, u"3"_s}, {u"4"_s}}));
}
