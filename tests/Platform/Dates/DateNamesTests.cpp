#include <KTUtility/Platform/Dates/DateNames_p.h>

#include "support/TestSupport.h"

#include <array>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
DateNameList listOf(const std::vector<const char16_t *> &names, int first = 0)
{
    std::vector<icu::UnicodeString> strings;
    for (const char16_t *const name : names)
        strings.emplace_back(name);
    return {strings.data(), int32_t(strings.size()), first};
}

/// "index:length", or "?" if only ICU can decide.
QString find(const DateNameList &list, const QString &text)
{
    const DateName name = list.find(text);
    if (!name.isDecided)
        return u"?"_s;
    return u"%1:%2"_s.arg(name.index).arg(name.length);
}

QString find(const DateNameList &list, const char16_t *text)
{
    return find(list, QString::fromUtf16(text));
}
} // namespace

TEST(DateNames, FindsTheLongest)
{
    const DateNameList list = listOf({u"červen", u"červenec", u"Mar", u"March"});
    EXPECT_EQ(find(list, u"červenec 5"), u"1:8");
    EXPECT_EQ(find(list, u"červen 5"), u"0:6");
    EXPECT_EQ(find(list, u"Marching"), u"3:5");
    EXPECT_EQ(find(list, u"Mark"), u"2:3");
    EXPECT_EQ(find(list, u"Ma"), u"-1:0");
    EXPECT_EQ(find(list, u""), u"-1:0");
}

TEST(DateNames, IgnoresCase)
{
    const DateNameList list = listOf({u"März", u"Août", u"ΜΆΙΟΣ"});
    EXPECT_EQ(find(list, u"mÄRZ"), u"0:4");
    EXPECT_EQ(find(list, u"AOÛT"), u"1:4");
    EXPECT_EQ(find(list, u"μάιος"), u"2:5");
}

TEST(DateNames, ForgivesAMissingPoint)
{
    const DateNameList list = listOf({u"juil.", u"mai"});
    EXPECT_EQ(find(list, u"juil. 5"), u"0:5");
    EXPECT_EQ(find(list, u"juil 5"), u"0:4");
    EXPECT_EQ(find(list, u"juillet"), u"0:4");
    EXPECT_EQ(find(list, u"mai."), u"1:3");
}

TEST(DateNames, LeavesLettersThatFoldToManyToICU)
{
    const DateNameList list = listOf({u"Strasse", u"Mai"});
    EXPECT_EQ(find(list, u"Straße"), u"?");
    EXPECT_EQ(find(list, u"Stram"), u"-1:0");
    EXPECT_EQ(find(list, u"Maiß"), u"?");
    EXPECT_EQ(find(list, u"ﬀ"), u"?");
    EXPECT_EQ(find(list, u"x"), u"-1:0");
}

TEST(DateNames, CountsFromWhereItIsTold)
{
    const DateNameList weekdays = listOf({u"", u"Sunday", u"Monday"}, 1);
    EXPECT_EQ(find(weekdays, u"monday"), u"2:6");
    EXPECT_EQ(find(weekdays, u""), u"-1:0");
    EXPECT_EQ(find(listOf({}), u"monday"), u"-1:0");
    EXPECT_EQ(find(listOf({u"", u""}), u"monday"), u"-1:0");
}

TEST(DateNames, LeavesVeryLongNamesToICU)
{
    const QString name(100, u'x');
    const auto list = listOf({reinterpret_cast<const char16_t *>(name.utf16())});
    EXPECT_EQ(find(list, name), u"?");
}

TEST(DateNames, TriesListsInOrder)
{
    const std::array lists{listOf({u"AM", u"PM"}), listOf({u"a", u"p"})};
    EXPECT_EQ(findName(lists, u"pm").length, 2);
    EXPECT_EQ(findName(lists, u"p.m.").length, 1);
    EXPECT_EQ(findName(lists, u"p.m.").index, 1);
    EXPECT_EQ(findName(lists, u"x").index, -1);
}

TEST(DateNames, KnowsWhatNamesStartWith)
{
    DateNames names;
    names.months[0] = listOf({u"January", u"März"});
    names.standaloneMonths[1] = listOf({u"4月"});
    names.weekdays[3] = listOf({u"W"});
    names.halvesOfDay[1] = listOf({u"a"});
    names.noteStarts();
    const auto has = [](quint64 starts, char16_t unit) {
        return (starts & DateNameList::bitOf(unit)) != 0;
    };
    EXPECT_TRUE(has(names.startsOfMonths, u'J'));
    EXPECT_TRUE(has(names.startsOfMonths, u'j'));
    EXPECT_TRUE(has(names.startsOfMonths, u'4'));
    EXPECT_FALSE(has(names.startsOfMonths, u'w'));
    EXPECT_TRUE(has(names.startsOfWeekdays, u'w'));
    EXPECT_TRUE(has(names.startsOfHalves, u'A'));
    EXPECT_FALSE(has(names.startsOfHalves, u'P'));
}

TEST(DateNames, SurvivesHostileTexts)
{
    const DateNameList list = listOf({u"January", u"\u0000", u"𝟗", u"\u0301"});
    for (const QString &text : hostileTexts())
        EXPECT_LE(list.find(text).length, 7);
}

TEST(DateNames, FindsTheLongestOfSeveralLists)
{
    const std::array<DateNameList, 2> lists{listOf({u"ҫу", u"ҫурла"}), listOf({u"ҫу", u"ҫур."})};
    const auto found = [&](const char16_t *text) {
        const DateName name = findLongestName(lists, text);
        return u"%1:%2"_s.arg(name.index).arg(name.length);
    };
    EXPECT_EQ(found(u"ҫу 5"), u"0:2");
    EXPECT_EQ(found(u"ҫур. 5"), u"1:4");
    EXPECT_EQ(found(u"ҫур 5"), u"1:3");
    EXPECT_EQ(found(u"ҫурла"), u"1:5");
    EXPECT_EQ(found(u"май"), u"-1:0");
    // The first list that has a name decides where names are tried one after the other.
    EXPECT_EQ(findName(lists, u"ҫур. 5").index, 0);
    EXPECT_FALSE(findLongestName(lists, u"ҫу\u1E9E").isDecided);
}
