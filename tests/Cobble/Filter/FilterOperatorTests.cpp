#include "Filter/FilterOperator.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(FilterOperator, IsFoundWhereItStands)
{
    const struct
    {
        const char16_t *text;
        FilterOperator operation;
        bool isNegated;
        qsizetype length;
    } rows[] = {
        {u"a =1", FilterOperator::Equal, false, 1},
        {u"a ==1", FilterOperator::Equal, false, 2},
        {u"a <=1", FilterOperator::LessOrEqual, false, 2},
        {u"a <>1", FilterOperator::NotEqual, false, 2},
        {u"a in (", FilterOperator::In, false, 2},
        {u"a Not   In (", FilterOperator::In, true, 8},
        {u"a is empty", FilterOperator::Empty, false, 8},
        {u"a is  not empty", FilterOperator::Empty, true, 13},
        {u"a BEGINS WITH x", FilterOperator::BeginsWith, false, 11},
        {u"a endswith'x'", FilterOperator::EndsWith, false, 8},
    };
    for (const auto &row : rows) {
        const auto found = FilterOperators::at(row.text, 2);
        ASSERT_TRUE(found) << QString::fromUtf16(row.text).toStdString();
        EXPECT_TRUE(found->operation == row.operation);
        EXPECT_EQ(found->isNegated, row.isNegated);
        EXPECT_EQ(found->length, row.length);
    }
}

TEST(FilterOperator, WordsStandAlone)
{
    for (const char16_t *text : {u"a inside", u"a not x", u"a is", u"a containsx", u"a like2",
                                 u"a not = 3", u"a not is empty", u"a ", u"a matches_"})
        EXPECT_FALSE(FilterOperators::at(text, 2)) << QString::fromUtf16(text).toStdString();
    EXPECT_FALSE(FilterOperators::at(u"xin (", 1));
    EXPECT_FALSE(FilterOperators::at(u"in (", 0));
}

TEST(FilterOperator, IsFoundAsItIsSpelled)
{
    for (int number = 0; number <= int(FilterOperator::Empty); ++number) {
        const auto operation = FilterOperator(number);
        if (operation == FilterOperator::During)
            continue;
        for (const bool isNegated : {false, FilterOperators::isWord(operation)}) {
            const QString text = u"a "_s + FilterOperators::spelled(operation, isNegated);
            const auto found = FilterOperators::at(text, 2);
            ASSERT_TRUE(found) << text.toStdString();
            EXPECT_TRUE(found->operation == operation) << text.toStdString();
            EXPECT_EQ(found->isNegated, isNegated);
            EXPECT_EQ(found->length, text.size() - 2);
        }
    }
    EXPECT_EQ(FilterOperators::spelled(FilterOperator::During), u"IN"_s);
}
