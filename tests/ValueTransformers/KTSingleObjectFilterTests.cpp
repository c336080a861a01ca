#include <KTUtility/KTSingleObjectFilter>
#include <KTUtility/NSCollections>

#include "support/TestSupport.h"

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
    EXPECT_EQ(filter->transformedValue(QVariant::fromValue(NSSet{7})), QVariant(7));
    EXPECT_EQ(filter->reverseTransformedValue(QVariantList{1}),
              QVariant(QVariantList{QVariant(QVariantList{1})}));
}
