#include <KTUtility/KTSingleObjectFilter>
#include <KTUtility/NSCollections>

#include "support/TestSupport.h"

#include <QSet>

#include <atomic>
#include <set>
#include <thread>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;
} // namespace

TEST(KTSingleObjectFilter, RunsItsExample)
{
    const auto filter = KTSingleObjectFilter::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QVariantList{1, 2}), QVariant(1));
    EXPECT_FALSE(filter->transformedValue(QVariantList()).isValid());
    EXPECT_EQ(filter->reverseTransformedValue(1), QVariant(QVariantList{1}));
    EXPECT_EQ(filter->reverseTransformedValue(nil), QVariant(QVariantList()));
    EXPECT_EQ(filter->transformedValue(u"a"_s), QVariant(u"a"_s));
    EXPECT_EQ(filter->reverseTransformedValue(u"a"_s), QVariant(QVariantList{u"a"_s}));
    EXPECT_FALSE(filter->transformedValue(nil).isValid());
}

TEST(KTSingleObjectFilter, ReversedEachDirectionIsTheOther)
{
    const auto filter = KTSingleObjectFilter::reversedValueTransformer();
    for (int time = 0; time < 2; ++time) {
        EXPECT_EQ(filter->transformedValue(1), QVariant(QVariantList{1}));
        EXPECT_EQ(filter->transformedValue(nil), QVariant(QVariantList()));
        EXPECT_EQ(filter->reverseTransformedValue(QVariantList{1, 2}), QVariant(1));
    }
}

TEST(KTSingleObjectFilter, TakesListsOfOtherTypes)
{
    const auto filter = KTSingleObjectFilter::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QStringList{u"a"_s, u"b"_s}), QVariant(u"a"_s));
    EXPECT_EQ(filter->reverseTransformedValue(QVariantList{1}),
              QVariant(QVariantList{QVariant(QVariantList{1})}));
}

TEST(KTSingleObjectFilter, SetsAreNoListsAndStayAsTheyAre)
{
    const auto filter = KTSingleObjectFilter::valueTransformer();
    for (const QVariant &set : {QVariant::fromValue(NSSet{7}), QVariant::fromValue(QSet<int>{7}),
                                QVariant::fromValue(std::set<int>{7})}) {
        EXPECT_EQ(filter->transformedValue(set).metaType(), set.metaType());
        const auto reversed = KTSingleObjectFilter::reversedValueTransformer();
        EXPECT_EQ(reversed->reverseTransformedValue(set).metaType(), set.metaType());
    }
}

TEST(KTSingleObjectFilter, OneFilterServesSeveralThreads)
{
    const auto filter = KTSingleObjectFilter::reversedValueTransformer();
    std::atomic<int> wrong = 0;
    const auto convert = [&] {
        for (int time = 0; time < 20'000; ++time) {
            if (filter->transformedValue(1).typeId() != QMetaType::QVariantList ||
                filter->reverseTransformedValue(QVariantList{1}) != QVariant(1))
                ++wrong;
        }
    };
    std::thread first(convert), second(convert);
    first.join();
    second.join();
    EXPECT_EQ(wrong, 0);
}
