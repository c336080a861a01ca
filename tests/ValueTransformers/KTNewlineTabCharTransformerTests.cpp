#include <KTUtility/KTNewlineTabCharTransformer>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;
} // namespace

TEST(KTNewlineTabCharTransformer, ReplacesCharactersForthAndBack)
{
    const KTNewlineTabCharTransformer transformer;
    EXPECT_EQ(transformer.transformedValue(u"one\ntwo"_s), QVariant(u"one\ttwo"_s));
    EXPECT_EQ(transformer.reverseTransformedValue(u"one\ttwo"_s), QVariant(u"one\ntwo"_s));
    EXPECT_EQ(transformer.transformedValue(u"a\r\nb\r"_s), QVariant(u"a\r\tb\r"_s));
    EXPECT_FALSE(transformer.transformedValue(nil).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(nil).isValid());
    for (const QString &text : hostileTexts()) {
        if (!text.isNull() && !text.contains(u'\t')) {
            EXPECT_EQ(transformer.reverseTransformedValue(transformer.transformedValue(text)),
                      QVariant(text));
        }
    }
}

TEST(KTNewlineTabCharTransformer, OtherTypesFailAnAssertion)
{
    const KTNewlineTabCharTransformer transformer;
    const QString output = standardErrorOf([&] {
        EXPECT_RAISES(transformer.transformedValue(5), NSInternalInconsistencyException,
                      u"value must be NSString"_s);
        EXPECT_RAISES(transformer.reverseTransformedValue(QVariantList()),
                      NSInternalInconsistencyException, u"value must be NSString"_s);
    });
    EXPECT_TRUE(output.contains(u"ValueTransformers/KTNewlineTabCharTransformer:"));
}
