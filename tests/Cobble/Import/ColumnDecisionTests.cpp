#include "Import/ColumnDecision.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
ColumnDecision decisionOf(KTColumnReading::Kind kind, const QStringList &texts,
                          const QString &told = {})
{
    KTColumnReading column(kind, NSLocale(u"en_US"_s));
    column.setConvention(told);
    for (const QString &text : texts)
        column.add(text);
    return ColumnDecision::of(column);
}
} // namespace

TEST(ColumnDecision, SaysWhatDecides)
{
    const ColumnDecision decision =
        decisionOf(KTColumnReading::Dates, {u"3/2/2016"_s, u""_s, u"13/2/2016"_s});
    EXPECT_EQ(decision.readAs, u"day, month, year"_s);
    EXPECT_EQ(decision.since, u"1 of 2 values decide"_s);
    EXPECT_TRUE(decision.contradicting.isNull());
    EXPECT_TRUE(decision.isNeeded());
}

TEST(ColumnDecision, IsNoneWhereNothingIsOpen)
{
    EXPECT_FALSE(decisionOf(KTColumnReading::Dates, {u"2016-02-13"_s, u"5 March"_s}).isNeeded());
    EXPECT_FALSE(decisionOf(KTColumnReading::Numbers, {u"12"_s, u"1 234"_s}).isNeeded());
    EXPECT_FALSE(decisionOf(KTColumnReading::Durations, {u"2h"_s}, u"m:s"_s).isNeeded());
    EXPECT_FALSE(decisionOf(KTColumnReading::Dates, {}).isNeeded());
}

TEST(ColumnDecision, NamesEachConvention)
{
    EXPECT_EQ(decisionOf(KTColumnReading::Dates, {u"3/2/2016"_s}).readAs, u"month, day, year"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Dates, {u"99-2-3"_s}).readAs, u"year, month, day"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Numbers, {u"1,5"_s}).readAs, u"1.234,5"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Amounts, {u"$1.5"_s}).readAs, u"1,234.5"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Durations, {u"1:30"_s}).readAs, u"hours:minutes"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Durations, {u"1:30.5"_s}).readAs, u"minutes:seconds"_s);
    EXPECT_EQ(ColumnDecision::ofCurrency(u"CAD"_s, u"so"_s).readAs, u"CAD"_s);
}

TEST(ColumnDecision, SaysThatTheLocaleOrTheUserDecides)
{
    EXPECT_EQ(decisionOf(KTColumnReading::Dates, {u"3/2/2016"_s}).since,
              u"no value decides; the locale's own"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Dates, {u"13/2/2016"_s, u"2/13/2016"_s}).since,
              u"the values contradict each other; the locale's own"_s);
    EXPECT_EQ(decisionOf(KTColumnReading::Dates, {u"3/2/2016"_s}, u"dmy"_s).since, u"you say so"_s);
}

TEST(ColumnDecision, ListsTheFirstRowsThatContradict)
{
    const auto contradicting = [](int count) {
        return decisionOf(KTColumnReading::Numbers, QStringList(count, u"1,5"_s), u"."_s)
            .contradicting;
    };
    EXPECT_EQ(contradicting(1), u"row 1"_s);
    EXPECT_EQ(contradicting(2), u"rows 1, 2"_s);
    EXPECT_EQ(contradicting(7), u"rows 1, 2, 3, 4, 5 and 2 more"_s);
}
