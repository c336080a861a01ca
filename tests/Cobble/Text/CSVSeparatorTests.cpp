#include "Text/CSVSeparator.h"

#include <KTUtility/KTInternational>
#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

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

TEST(CSVSeparator, NamesAndCharacters)
{
    const QList<NameCase> cases = {
        {QStringLiteral("comma"), u','}, {QStringLiteral("Semicolon"), u';'},
        {QStringLiteral("TAB"), u'\t'},  {QStringLiteral("pipe"), u'|'},
        {QStringLiteral("space"), u' '}, {QStringLiteral("\\t"), u'\t'},
        {QStringLiteral("\t"), u'\t'},   {QStringLiteral(","), u','},
        {QStringLiteral(":"), u':'},     {QStringLiteral("\\"), u'\\'},
        {QStringLiteral("x"), u'x'},     {QStringLiteral("\u2022"), QChar(0x2022)},
        {QStringLiteral("-"), u'-'},
    };
    for (const NameCase &row : cases)
        EXPECT_EQ(CSVSeparator::fromName(row.name), row.separator) << row.name.toStdString();
}

TEST(CSVSeparator, WhatCannotSeparateIsNone)
{
    const QStringList texts = {QString(),
                               QStringLiteral(""),
                               QStringLiteral("\""),
                               QStringLiteral("\n"),
                               QStringLiteral("\r"),
                               QString(QChar(0)),
                               QString(QChar(0xD800)),
                               QStringLiteral("😀"),
                               QStringLiteral("::"),
                               QStringLiteral("commas"),
                               QStringLiteral(" comma")};
    for (const QString &text : texts)
        EXPECT_FALSE(CSVSeparator::fromName(text)) << text.toStdString();
    for (const QString &text : testing_support::hostileTexts()) {
        if (text.size() > 1) {
            EXPECT_FALSE(CSVSeparator::fromName(text));
        }
    }
}

TEST(CSVSeparator, NamesForPeople)
{
    EXPECT_EQ(CSVSeparator::nameOf(u','), QStringLiteral("comma"));
    EXPECT_EQ(CSVSeparator::nameOf(u'\t'), QStringLiteral("tab"));
    EXPECT_EQ(CSVSeparator::nameOf(u':'), QStringLiteral(":"));
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
        {QStringLiteral("sep=;\na;b"), u';', 6},   {QStringLiteral("sep=;\r\na;b"), u';', 7},
        {QStringLiteral("sep=,\ra,b"), u',', 6},   {QStringLiteral("SEP=|\n"), u'|', 6},
        {QStringLiteral("sep=\t\na"), u'\t', 6},   {QStringLiteral("sep=;"), u';', 5},
        {QStringLiteral("\"sep=;\"\na"), u';', 8}, {QStringLiteral("sep==\na"), u'=', 6},
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
    const QList<QString> texts = {QString(),
                                  QStringLiteral(""),
                                  QStringLiteral("sep="),
                                  QStringLiteral("sep=\n;"),
                                  QStringLiteral("sep=\"\n"),
                                  QStringLiteral("sep=;;\n"),
                                  QStringLiteral("sep=; \n"),
                                  QStringLiteral("\nsep=;"),
                                  QStringLiteral(" sep=;"),
                                  QStringLiteral("a,sep=;\n"),
                                  QStringLiteral("\"sep=;\n")};
    for (const QString &text : texts)
        EXPECT_FALSE(CSVSeparator::directiveOf(text)) << text.toStdString();
    for (const QString &text : testing_support::hostileTexts())
        EXPECT_FALSE(CSVSeparator::directiveOf(text));
}

class CSVSeparatorSniffing : public testing::TestWithParam<SniffCase>
{
};

TEST_P(CSVSeparatorSniffing, FindsThisOne)
{
    EXPECT_EQ(CSVSeparator::sniffed(GetParam().text), GetParam().separator);
}

INSTANTIATE_TEST_SUITE_P(
    All, CSVSeparatorSniffing,
    testing::Values(SniffCase{"Nothing", QString(), u','},
                    SniffCase{"OneColumn", QStringLiteral("a\nb\nc"), u','},
                    SniffCase{"Comma", QStringLiteral("a,b\n1,2"), u','},
                    SniffCase{"Semicolon", QStringLiteral("a;b\n1;2"), u';'},
                    SniffCase{"Tab", QStringLiteral("a\tb\n1\t2"), u'\t'},
                    SniffCase{"Pipe", QStringLiteral("a|b\n1|2"), u'|'},
                    SniffCase{"SpaceIsNeverGuessed", QStringLiteral("a b\n1 2"), u','},
                    SniffCase{"DecimalCommas", QStringLiteral("name;price\nA;1,50\nB;2,50"), u';'},
                    SniffCase{"CommasInSomeRows", QStringLiteral("a;b\n1,5;2\n3;4\n5;6,5"), u';'},
                    SniffCase{"QuotedCommas", QStringLiteral("\"a,b\"|c\n\"d,e\"|f"), u'|'},
                    SniffCase{"QuotedBreaks", QStringLiteral("\"a\n,\n\";b\n\"c\n,\n\";d"), u';'},
                    SniffCase{"TheFirstWinsATie", QStringLiteral("a,b;c\n1,2;3"), u','},
                    SniffCase{"SemicolonBeforeTab", QStringLiteral("a\tb;c\n1\t2;3"), u';'},
                    SniffCase{"TabBeforePipe", QStringLiteral("a|b\tc\n1|2\t3"), u'\t'},
                    SniffCase{"MostRowsWin", QStringLiteral("a;b,c\n1;2\n3;4,5\n6;7"), u';'},
                    SniffCase{"VaryingCountsLose", QStringLiteral("a,b,c|d\n1,2|3\n1|4"), u'|'},
                    SniffCase{"RowsWithoutTextDoNotCount",
                              QStringLiteral("\t\n \t\n\t\na;b\n1;2\n"), u';'},
                    SniffCase{"BlankLinesDoNotCount", QStringLiteral("\n\n\na;b\n\n1;2\n"), u';'}),
    [](const auto &row) { return row.param.name; });

TEST(CSVSeparator, OnlyTheFirstRowsAreLookedAt)
{
    const QString text =
        QStringLiteral("a;b\n").repeated(100) + QStringLiteral("a,b\n").repeated(1000);
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

class LocalizedSeparators : public testing::Test
{
protected:
    LocalizedSeparators()
    {
        // In place of the one that other tests may have made.
        delete KTInternational::instance();
        host = new HostSeparators;
    }
    ~LocalizedSeparators() override
    {
        NSLocale::resetCurrentLocale();
        delete KTInternational::instance();
    }

    KTInternational *host = nullptr;
};
} // namespace

TEST_F(LocalizedSeparators, EachRowIsWhatTheNumbersOfTheLocaleSay)
{
    const std::optional<QVariantMap> list = host->separatorsDict();
    ASSERT_TRUE(list.has_value());
    EXPECT_GE(list->size(), 31);
    for (auto row = list->begin(); row != list->end(); ++row) {
        if (row.key() == KTInternationalSeparatorsListKey)
            continue;
        const bool hasDecimalComma = NSLocale(row.key()).decimalSeparator() == u",";
        EXPECT_EQ(row.value().toString(),
                  hasDecimalComma ? QStringLiteral(";") : QStringLiteral(","))
            << row.key().toStdString();
    }
}

TEST_F(LocalizedSeparators, TheLocaleDecidesWhereTheTextDoesNot)
{
    // One row that both divide alike.
    const QString text = QStringLiteral("a;b,c\n");
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

TEST_F(LocalizedSeparators, ATextThatFitsAnotherWins)
{
    NSLocale::setCurrentLocale(NSLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(CSVSeparator::sniffed(u"a,b\n1,2\n3,4\n"), u',');
    EXPECT_EQ(CSVSeparator::sniffed(u"a\tb\n1;5\t2\n3\t4\n"), u'\t');
    NSLocale::setCurrentLocale(NSLocale(QStringLiteral("en_US")));
    EXPECT_EQ(CSVSeparator::sniffed(u"a;b\n1,5;2,5\n3;4\n"), u';');
    EXPECT_EQ(CSVSeparator::sniffed(u"a|b\n1|2\n"), u'|');
}

TEST_F(LocalizedSeparators, WithoutAnySeparatorItIsThatOfTheLocale)
{
    NSLocale::setCurrentLocale(NSLocale(QStringLiteral("de_DE")));
    EXPECT_EQ(CSVSeparator::sniffed(u"a\nb\n"), u';');
    EXPECT_EQ(CSVSeparator::sniffed(u""), u';');
}
