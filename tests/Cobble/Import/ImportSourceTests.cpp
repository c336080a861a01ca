#include "Import/ImportSource.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QStringList headersOf(const QString &text)
{
    const ImportSource source = ImportSource::fromText(text);
    EXPECT_EQ(source.errorDescription, QString());
    return source.headers;
}

QStringList texts(std::initializer_list<const char16_t *> list)
{
    QStringList result;
    for (const char16_t *text : list)
        result += QString::fromUtf16(text);
    return result;
}
} // namespace

TEST(ImportSource, TheExampleOfTheHeader)
{
    const ImportSource source = ImportSource::fromText(u"a;b\n1;2;3\n4\n");
    EXPECT_EQ(source.headers, texts({u"a", u"b", u""}));
    EXPECT_EQ(source.separator, u';');
    EXPECT_EQ(source.rowCount, 2);
    EXPECT_EQ(source.raggedRowCount, 2);
    EXPECT_EQ(source.unclosedQuoteLine, 0);
}

TEST(ImportSource, HeadersAreKeptAsTyped)
{
    EXPECT_EQ(headersOf(u" First Name ,\"a\nb\",,\"\"\n"_s),
              texts({u" First Name ", u"a\nb", u"", u""}));
}

TEST(ImportSource, HeadersAloneAreALibraryWithoutRows)
{
    const ImportSource source = ImportSource::fromText(u"a,b");
    EXPECT_EQ(source.headers, texts({u"a", u"b"}));
    EXPECT_EQ(source.rowCount, 0);
    EXPECT_EQ(source.raggedRowCount, 0);
}

TEST(ImportSource, BlankLinesAreNoRows)
{
    const ImportSource source = ImportSource::fromText(u"\r\na,b\r\n\r\n1,2\r\n   \r\n");
    EXPECT_EQ(source.headers, texts({u"a", u"b"}));
    EXPECT_EQ(source.rowCount, 1);
    EXPECT_EQ(source.raggedRowCount, 0);
}

TEST(ImportSource, TheDirectiveIsHonouredAndIsNoHeader)
{
    const ImportSource source = ImportSource::fromText(u"sep=|\na,b|c,d\n1|2\n");
    EXPECT_EQ(source.separator, u'|');
    EXPECT_EQ(source.headers, texts({u"a,b", u"c,d"}));
    EXPECT_EQ(source.rowCount, 1);
}

TEST(ImportSource, TheSeparatorAskedForWinsOverTheDirective)
{
    const ImportSource source = ImportSource::fromText(u"sep=|\na,b|c\n", u',');
    EXPECT_EQ(source.separator, u',');
    EXPECT_EQ(source.headers, texts({u"a", u"b|c"}));
}

TEST(ImportSource, LinesAreCountedFromTheDirective)
{
    EXPECT_EQ(ImportSource::fromText(u"sep=;\na;b\n1;\"2\n").unclosedQuoteLine, 3);
    EXPECT_EQ(ImportSource::fromText(u"a;b\n1;\"2\n").unclosedQuoteLine, 2);
}

TEST(ImportSource, ATextWithoutHeadersCannotBeImported)
{
    for (const QString &text : {QString(), u"\n\r\n\n"_s, u"  \n\t\n"_s, u"sep=;\n"_s}) {
        EXPECT_EQ(ImportSource::fromText(text).errorDescription,
                  u"there is nothing but blank lines"_s);
    }
}

TEST(ImportSource, AsManyColumnsAsALibraryCanHave)
{
    const QString row = QString(ImportSource::ColumnLimit - 1, u',');
    EXPECT_EQ(headersOf(row).size(), ImportSource::ColumnLimit);
    EXPECT_EQ(headersOf(QString(u"a\n" + row)).size(), ImportSource::ColumnLimit);
}

TEST(ImportSource, MoreColumnsAreRefused)
{
    const QString row = QString(ImportSource::ColumnLimit, u',');
    EXPECT_EQ(ImportSource::fromText(row).errorDescription,
              u"line 1 has 2000 columns, more than the 1999 that a library can have"_s);
    EXPECT_EQ(ImportSource::fromText(QString(u"a,b\n\n" + row)).errorDescription,
              u"line 3 has 2000 columns, more than the 1999 that a library can have"_s);
}

TEST(ImportSource, HostileTextsGiveAnAnswer)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const ImportSource source = ImportSource::fromText(text);
        EXPECT_EQ(source.headers.isEmpty(), text.trimmed().isEmpty());
        EXPECT_EQ(source.headers.isEmpty(), !source.errorDescription.isNull());
    }
}
