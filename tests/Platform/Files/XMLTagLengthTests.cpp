#include <KTUtility/Platform/Files/XMLTagLength_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(XMLTagLength, TagsAndDeclarationsCount)
{
    struct Row
    {
        const char16_t *text;
        qsizetype longest;
    };
    const Row rows[] = {
        {u"", 0},
        {u"text without any", 0},
        {u"a > b", 0},
        {u"<a>", 3},
        {u"text <a>more text</a> text", 4},
        {u"<a b='>'>", 9},
        {u"<a b=\"'>'\"/>text", 12},
        {u"<a>isn't it<b>", 3},
        {u"<!-- a long comment, <tags a='1'> and all -->", 0},
        {u"<!-- isn't closed", 0},
        {u"<![CDATA[ <tags> ]] > ]]><a>", 3},
        {u"<?an instruction> ?><a>", 3},
        {u"<!DOCTYPE a>", 12},
        {u"<!DOCTYPE a [<!ELEMENT b>]>", 27},
        {u"<!DOCTYPE a [<!-- isn't > --><?'?>]><b>", 36},
        {u"<!DOCTYPE a '>' \"'\"><b>", 20},
        {u"<a", 2},
        {u"<a b='>", 7},
        {u"<a <b>>", 7},
        {u"<", 1},
    };
    for (const Row &row : rows)
        EXPECT_EQ(longestXMLTag(row.text), row.longest)
            << QString::fromUtf16(row.text).toStdString();
}

TEST(XMLTagLength, EveryTextHasALength)
{
    for (const QString &text : hostileTexts()) {
        EXPECT_LE(longestXMLTag(text), text.size());
        EXPECT_LE(longestXMLTag(QString(u"<a " + text)), text.size() + 3);
    }
}

TEST(XMLTagLength, TheTimeGrowsWithTheSize)
{
    const testing_support::ProcessorTime time;
    EXPECT_EQ(longestXMLTag(u"<"_s.repeated(4 << 20)), 4 << 20);
    EXPECT_EQ(longestXMLTag(u"<a b='"_s.repeated(1 << 20)), 6 << 20);
    EXPECT_EQ(longestXMLTag(u"<a>"_s.repeated(1 << 20)), 3);
    EXPECT_LT(time.elapsed(), 5000);
}
