// Words and phrases found in typed texts.

#include <KTUtility/CommonForms/Text/PhraseTable_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
PhraseTable<int> dayTable()
{
    PhraseTable<int> table;
    table.add(u"today", 0);
    table.add(u"Tomorrow", 1);
    table.add(u"day after tomorrow", 2);
    table.add(u"day", 7);
    table.add(u"\u4E0B\u5348", 12);
    table.add(u"\u0E1A\u0E48\u0E32\u0E22", 13);
    table.add(u"m", 60);
    table.add(u"m", 30);
    table.add(u"m", 60);
    return table;
}

struct Row
{
    const char16_t *text;
    qsizetype position;
    qsizetype length;
    int meaning;
};
} // namespace

TEST(PhraseTable, FindsTheLongestPhrase)
{
    constexpr Row Rows[] = {
        {u"today", 0, 5, 0},
        {u"tomorrow, 5 pm", 0, 8, 1},
        {u"on day after tomorrow", 3, 18, 2},
        {u"day after noon", 0, 3, 7},
        {u"todays", 0, 0, 0},
        {u"days", 0, 0, 0},
        {u"day5", 0, 3, 7},
        {u"\u4E0B\u53483\u6642", 0, 2, 12},
        {u"\u4E0B\u5348\u4E09\u6642", 0, 2, 12},
        {u"\u0E1A\u0E48\u0E32\u0E22\u0E2A\u0E32\u0E21", 0, 4, 13},
        {u"x", 0, 0, 0},
        {u"x", 1, 0, 0},
    };
    const PhraseTable<int> table = dayTable();
    for (const Row &row : Rows) {
        const auto match = table.longestAt(QStringView(row.text), row.position);
        ASSERT_EQ(match.length, row.length) << QString::fromUtf16(row.text).toStdString();
        EXPECT_EQ(row.length ? match.meanings.front() : 0, row.meaning);
    }
}

TEST(PhraseTable, FindsAShorterOneWhereAsked)
{
    const QStringView text = u"day after tomorrow";
    EXPECT_EQ(dayTable().longestUpTo(17, text, 0).length, 3);
    EXPECT_EQ(dayTable().longestUpTo(2, text, 0).length, 0);
}

TEST(PhraseTable, KeepsAllThatAPhraseMeansOnce)
{
    const PhraseTable<int> table = dayTable();
    const auto match = table.longestAt(u"m", 0);
    EXPECT_EQ(std::vector<int>(match.meanings.begin(), match.meanings.end()),
              (std::vector<int>{60, 30}));
    EXPECT_EQ(table.size(), 7);
}

TEST(PhraseTable, AWordEndsWhereNoLetterFollows)
{
    EXPECT_FALSE(isWordEnd(u"days", 3));
    EXPECT_TRUE(isWordEnd(u"day s", 3));
    EXPECT_TRUE(isWordEnd(u"5pm", 1));
    EXPECT_TRUE(isWordEnd(u"day", 3));
    EXPECT_TRUE(isWordEnd(u"\u6708\u65E5", 1));
    EXPECT_FALSE(isWordEnd(u"\u043C\u0430\u0439", 1));
}
