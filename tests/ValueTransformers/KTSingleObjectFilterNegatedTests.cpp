#include <KTUtility/KTSingleObjectFilterNegated>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
using Transformer = std::shared_ptr<NSValueTransformer>;
} // namespace

TEST(KTSingleObjectFilterNegated, NegatesNumbersOnly)
{
    const auto filter = KTSingleObjectFilterNegated::valueTransformer();
    EXPECT_EQ(filter->transformedValue(QVariantList{true}), QVariant(false));
    EXPECT_EQ(filter->transformedValue(QVariantList{0.0}), QVariant(true));
    EXPECT_EQ(filter->transformedValue(5), QVariant(false));
    EXPECT_FALSE(filter->transformedValue(QVariantList()).isValid());
    EXPECT_EQ(filter->transformedValue(QVariantList{u"YES"_s}), QVariant(u"YES"_s));
    EXPECT_FALSE(filter->allowsReverseTransformation());
    // The inherited factory makes the plain class.
    const Transformer plain = KTSingleObjectFilterNegated::reversedValueTransformer();
    EXPECT_FALSE(std::dynamic_pointer_cast<KTSingleObjectFilterNegated>(plain));
    EXPECT_EQ(plain->transformedValue(true), QVariant(QVariantList{true}));
}
