#include <KTUtility/KTBaseValueTransformer>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;
} // namespace

TEST(KTBaseValueTransformer, CountsFromOneAndRunsOver)
{
    const auto transformer = KTBaseValueTransformer::valueTransformer();
    EXPECT_EQ(transformer->transformedValue(0), QVariant(1U));
    EXPECT_EQ(transformer->reverseTransformedValue(1), QVariant(0U));
    EXPECT_EQ(transformer->reverseTransformedValue(0), QVariant(4294967295U));
    EXPECT_EQ(transformer->transformedValue(4294967295U), QVariant(0U));
    EXPECT_EQ(transformer->transformedValue(u"41"_s), QVariant(42U));
    EXPECT_FALSE(transformer->transformedValue(nil).isValid());
    EXPECT_FALSE(transformer->reverseTransformedValue(QVariant(QString())).isValid());
    EXPECT_EQ(transformer->transformedValue(QVariant::fromValue(Qt::Wednesday)), QVariant(4U));
    const auto reversed = KTBaseValueTransformer::reversedValueTransformer();
    EXPECT_EQ(reversed->transformedValue(1), QVariant(0U));
    EXPECT_EQ(reversed->transformedValue(0), QVariant(4294967295U));
    EXPECT_EQ(reversed->reverseTransformedValue(0), QVariant(1U));
}
