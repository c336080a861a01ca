#include "Text/HTMLTable.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(HTMLTableTests, WrittenTablesAreRead)
{
    const QStringList titles{u"A & B"_s, u"C"_s};
    const QList<QStringList> rows{{u"a\nb"_s, u"<i>&amp;"_s}, {u""_s, u"\"x\" 'y'"_s}};
    EXPECT_EQ(HTMLTable::rows(HTMLTable::text(titles, rows)),
              QList<QStringList>({titles, rows.at(0), rows.at(1)}));
}

TEST(HTMLTableTests, TagsOfOtherProgramsAreRead)
{
    const QList<std::pair<QString, QList<QStringList>>> cases = {
        {u"<table><tr><td>a<td>b<tr><td>c</table>"_s, {{u"a"_s, u"b"_s}, {u"c"_s}}},
        {u"<TABLE border=\">\"><TR><TD align='left'><FONT>x</FONT>\n  y </TD></TR></TABLE>"_s,
         {{u"x y"_s}}},
        {u"<style>td{<table>}</style><!-- <table><td>no --><table><td>yes</td></table>"_s,
         {{u"yes"_s}}},
        {u"<table><td>&#65;&#x42;&nbsp;&lt;&unknown;&#xD800;</td></table>"_s,
         {{u"AB\u00A0<&unknown;&#xD800;"_s}}},
        {u"<table><td><p>one</p><p>two</p></td><td>a<br/>b</td></table>"_s,
         {{u"one\ntwo"_s, u"a\nb"_s}}},
        {u"<table><td colspan=3>wide</td><td>next</td></table>"_s,
         {{u"wide"_s, u""_s, u""_s, u"next"_s}}},
        {u"<table><td>outer <table><td>inner</td></table></td><td>b</td></table>"_s,
         {{u"outer inner"_s, u"b"_s}}},
        {u"<table><td>1</td></table><table><td>2</td></table>"_s, {{u"1"_s}}},
    };
    for (const auto &[html, rows] : cases)
        EXPECT_EQ(HTMLTable::rows(html), rows) << html.toStdString();
}

TEST(HTMLTableTests, WhatIsNoTableHasNoRows)
{
    for (const QString &html : {u""_s, u"plain"_s, u"<p>text</p>"_s, u"<td>cell</td>"_s,
                                u"<table></table>"_s, u"</table><td>x"_s, u"<table><tr></tr>"_s})
        EXPECT_TRUE(HTMLTable::rows(html).isEmpty()) << html.toStdString();
}

TEST(HTMLTableTests, HostileTablesAreReadInTime)
{
    QString deep = u"<table><td>"_s;
    deep += u"<table><td>"_s.repeated(50000);
    EXPECT_EQ(HTMLTable::rows(deep).size(), 1);
    EXPECT_TRUE(HTMLTable::rows(u"<"_s.repeated(100000)).isEmpty());
    EXPECT_LE(HTMLTable::rows(u"<table><td colspan=999999999>x</table>"_s).first().size(), 9999);
}

TEST(HTMLTableTests, TagsMayBeOfAnyLength)
{
    const QString parts[] = {QString(100'000, u'x'), u"a=\"b>\" "_s.repeated(50'000),
                             u"''"_s.repeated(50'000), u" title=it's"_s};
    for (const QString &part : parts)
        EXPECT_EQ(HTMLTable::rows(u"<table><tr><td "_s + part + u">a</td><td>b</td></table>"_s),
                  QList<QStringList>{QStringList({u"a"_s, u"b"_s})})
            << part.left(20).toStdString();
}

TEST(HTMLTableTests, WhatIsNeverClosedIsLookedAtOnce)
{
    for (const QString &part : {u"<a "_s, u"<a \""_s, u"<a '\""_s, u"<!-- "_s, u"<script "_s}) {
        const QString html = u"<table><td>a</td>"_s + part.repeated(100'000);
        EXPECT_EQ(HTMLTable::rows(html), QList<QStringList>{QStringList(u"a"_s)})
            << part.toStdString();
    }
}

TEST(HTMLTableTests, TooManyCellsAreNoTable)
{
    const QString wide = u"<td colspan=1000>x</td>"_s;
    EXPECT_EQ(HTMLTable::rows(u"<table>"_s + wide.repeated(100)).first().size(), 100'000);
    EXPECT_TRUE(HTMLTable::rows(u"<table>"_s + wide.repeated(20'000)).isEmpty());
    EXPECT_TRUE(HTMLTable::rows(u"<table>"_s + u"<tr>"_s + wide.repeated(5000)).isEmpty());
}
