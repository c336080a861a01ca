#include "Text/CSVSeparator.h"

#include <KTUtility/KTInternational>
#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
struct NameCase
{
    QString name;
    QChar separator;
};

struct SniffCase
{
    const char *name;
    QString text;
    QChar separator;
};

void PrintTo(const SniffCase &row, std::ostream *stream)
{
    *stream << row.name;
}
} // namespace

TEST(CSVSeparator, KnowsNamesAndCharacters)
{
    const QList<NameCase> cases = {
        {u"comma"_s, u','}, {u"Semicolon"_s, u';'}, {u"TAB"_s, u'\t'}, {u"pipe"_s, u'|'},
        {u"space"_s, u' '}, {u"\\t"_s, u'\t'},      {u"\t"_s, u'\t'},  {u","_s, u','},
        {u":"_s, u':'},     {u"\\"_s, u'\\'},       {u"x"_s, u'x'},    {u"\u2022"_s, QChar(0x2022)},
        {u"-"_s, u'-'},
    };
    for (const NameCase &row : cases)
        EXPECT_EQ(CSVSeparator::fromName(row.name), row.separator) << row.name.toStdString();
}

TEST(CSVSeparator, WhatCannotSeparateIsNone)
{
    const QStringList texts = {QString(),
                               u""_s,
                               u"\""_s,
                               u"\n"_s,
                               u"\r"_s,
                               QString(QChar(0)),
                               QString(QChar(0xD800)),
                               u"😀"_s,
                               u"::"_s,
                               u"commas"_s,
                               u" comma"_s};
    for (const QString &text : texts)
        EXPECT_FALSE(CSVSeparator::fromName(text)) << text.toStdString();
    for (const QString &text : testing_support::hostileTexts()) {
        if (text.size() > 1) {
            EXPECT_FALSE(CSVSeparator::fromName(text));
        }
    }
}

TEST(CSVSeparator, HasNamesForPeople)
{
    EXPECT_EQ(CSVSeparator::nameOf(u','), u"comma"_s);
    EXPECT_EQ(CSVSeparator::nameOf(u'\t'), u"tab"_s);
    EXPECT_EQ(CSVSeparator::nameOf(u':'), u":"_s);
}

TEST(CSVSeparator, EveryNameIsReadBack)
{
    for (const QChar separator : {u',', u';', u'\t', u'|', u' ', u':'})
        EXPECT_EQ(CSVSeparator::fromName(CSVSeparator::nameOf(separator)), separator);
}

TEST(CSVSeparator, DirectivesAreRead)
{
    struct DirectiveCase
    {
        QString text;
        QChar separator;
        qsizetype length;
    };
    const QList<DirectiveCase> cases = {
        {u"sep=;\na;b"_s, u';', 6},   {u"sep=;\r\na;b"_s, u';', 7}, {u"sep=,\ra,b"_s, u',', 6},
        {u"SEP=|\n"_s, u'|', 6},      {u"sep=\t\na"_s, u'\t', 6},   {u"sep=;"_s, u';', 5},
        {u"\"sep=;\"\na"_s, u';', 8}, {u"sep==\na"_s, u'=', 6},
    };
    for (const DirectiveCase &row : cases) {
        const auto directive = CSVSeparator::directiveOf(row.text);
        ASSERT_TRUE(directive) << row.text.toStdString();
        EXPECT_EQ(directive->separator, row.separator);
        EXPECT_EQ(directive->length, row.length);
    }
}

TEST(CSVSeparator, OtherFirstLinesAreNoDirectives)
{
    const QList<QString> texts = {QString(),     u""_s,          u"sep="_s,     u"sep=\n;"_s,
                                  u"sep=\"\n"_s, u"sep=;;\n"_s,  u"sep=; \n"_s, u"\nsep=;"_s,
                                  u" sep=;"_s,   u"a,sep=;\n"_s, u"\"sep=;\n"_s};
    for (const QString &text : texts)
        EXPECT_FALSE(CSVSeparator::directiveOf(text)) << text.toStdString();
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(CSVSeparator::directiveOf(text));
}

class CSVSeparatorTests : public testing::TestWithParam<SniffCase>
{
};

TEST_P(CSVSeparatorTests, FindsTheSeparatorOfARow)
{
    EXPECT_EQ(CSVSeparator::sniffed(GetParam().text), GetParam().separator);
}

INSTANTIATE_TEST_SUITE_P(
    All, CSVSeparatorTests,
    testing::Values(
        SniffCase{"Nothing", QString(), u','}, SniffCase{"OneColumn", u"a\nb\nc"_s, u','},
        SniffCase{"Comma", u"a,b\n1,2"_s, u','}, SniffCase{"Semicolon", u"a;b\n1;2"_s, u';'},
        SniffCase{"Tab", u"a\tb\n1\t2"_s, u'\t'}, SniffCase{"Pipe", u"a|b\n1|2"_s, u'|'},
        SniffCase{"SpaceIsNeverGuessed", u"a b\n1 2"_s, u','},
        SniffCase{"DecimalCommas", u"name;price\nA;1,50\nB;2,50"_s, u';'},
        SniffCase{"CommasInSomeRows", u"a;b\n1,5;2\n3;4\n5;6,5"_s, u';'},
        SniffCase{"QuotedCommas", u"\"a,b\"|c\n\"d,e\"|f"_s, u'|'},
        SniffCase{"QuotedBreaks", u"\"a\n,\n\";b\n\"c\n,\n\";d"_s, u';'},
        SniffCase{"TheFirstWinsATie", u"a,b;c\n1,2;3"_s, u','},
        SniffCase{"SemicolonBeforeTab", u"a\tb;c\n1\t2;3"_s, u';'},
        SniffCase{"TabBeforePipe", u"a|b\tc\n1|2\t3"_s, u'\t'},
        SniffCase{"MostRowsWin", u"a;b,c\n1;2\n3;4,5\n6;7"_s, u';'},
        SniffCase{"VaryingCountsLose", u"a,b,c|d\n1,2|3\n1|4"_s, u'|'},
        SniffCase{"RowsWithoutTextDoNotCount", u"\t\n \t\n\t\na;b\n1;2\n"_s, u';'},
        SniffCase{"BlankLinesDoNotCount", u"\n\n\na;b\n\n1;2\n"_s, u';'}),
    [](const auto &row) { return row.param.name; });

TEST(CSVSeparator, OnlyTheFirstRowsAreLookedAt)
{
    const QString text = u"a;b\n"_s.repeated(100) + u"a,b\n"_s.repeated(1000);
    EXPECT_EQ(CSVSeparator::sniffed(text), u';');
}

TEST(CSVSeparator, HostileTextsGiveAnAnswer)
{
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_EQ(CSVSeparator::sniffed(text), u',');
}

namespace {
/// The host as it finds its own list of separators.
class HostSeparators : public KTInternational
{
protected:
    QString separatorsPath() const override
    {
        return QStringLiteral(COBBLE_BUNDLE_CONTENTS "/Resources/separators.plist");
    }
};

class CSVSeparatorLocaleTests : public testing::Test
{
protected:
    CSVSeparatorLocaleTests()
    {
        // In place of the one that other tests may have made.
        delete KTInternational::instance();
        host = new HostSeparators;
    }
    ~CSVSeparatorLocaleTests() override
    {
        NSLocale::resetCurrentLocale();
        delete KTInternational::instance();
    }

    KTInternational *host = nullptr;
};
} // namespace

TEST_F(CSVSeparatorLocaleTests, EachRowIsWhatTheNumbersOfTheLocaleSay)
{
    const std::optional<QVariantMap> list = host->separatorsDict();
    ASSERT_TRUE(list.has_value());
    EXPECT_GE(list->size(), 31);
    for (auto row = list->begin(); row != list->end(); ++row) {
        if (row.key() == KTInternationalSeparatorsListKey)
            continue;
        const bool hasDecimalComma = NSLocale(row.key()).decimalSeparator() == u",";
        EXPECT_EQ(row.value().toString(), hasDecimalComma ? u";"_s : u","_s)
            << row.key().toStdString();
    }
}

TEST_F(CSVSeparatorLocaleTests, TheLocaleDecidesWhereTheTextDoesNot)
{
    // One row that both divide alike.
    const QString text = u"a;b,c\n"_s;
    for (const auto &[locale, separator] :
         {std::pair(u"de_DE", u';'), std::pair(u"fr_FR", u';'), std::pair(u"en_US", u','),
          std::pair(u"ja_JP", u','), std::pair(u"es_MX", u','), std::pair(u"es_ES", u';'),
          std::pair(u"xx_YY", u',')}) {
        NSLocale::setCurrentLocale(NSLocale(QString::fromUtf16(locale)));
        EXPECT_EQ(CSVSeparator::sniffed(text), separator)
            << QString::fromUtf16(locale).toStdString();
        EXPECT_EQ(CSVSeparator::candidates().size(), 4);
    }
}

TEST_F(CSVSeparatorLocaleTests, ATextThatFitsAnotherWins)
{
    NSLocale::setCurrentLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(CSVSeparator::sniffed(u"a,b\n1,2\n3,4\n"), u',');
    EXPECT_EQ(CSVSeparator::sniffed(u"a\tb\n1;5\t2\n3\t4\n"), u'\t');
    NSLocale::setCurrentLocale(NSLocale(u"en_US"_s));
    EXPECT_EQ(CSVSeparator::sniffed(u"a;b\n1,5;2,5\n3;4\n"), u';');
    EXPECT_EQ(CSVSeparator::sniffed(u"a|b\n1|2\n"), u'|');
}

TEST_F(CSVSeparatorLocaleTests, WithoutAnySeparatorItIsThatOfTheLocale)
{
    NSLocale::setCurrentLocale(NSLocale(u"de_DE"_s));
    EXPECT_EQ(CSVSeparator::sniffed(u"a\nb\n"), u';');
    EXPECT_EQ(CSVSeparator::sniffed(u""), u';');
}
