#include <KTUtility/KTStringColorTransformer>
#include <KTUtility/NSColor_KTAdditions>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
const QVariant nil;
} // namespace

TEST(KTStringColorTransformer, ForthAndBackKeepsTheComponents)
{
    const KTStringColorTransformer transformer;
    for (const QColor &color : {QColor(Qt::red), QColor(1, 2, 3, 4), QColor(255, 254, 253, 252),
                                QColor::fromRgbF(0.1F, 0.2F, 0.3F, 0.4F), QColor(Qt::transparent)})
        EXPECT_EQ(transformer.transformedValue(transformer.reverseTransformedValue(color))
                      .value<QColor>(),
                  color);
    EXPECT_EQ(transformer.reverseTransformedValue(QColor(Qt::red)), QVariant(u"1 0 0 1"_s));
    EXPECT_FALSE(transformer.transformedValue(nil).isValid());
    EXPECT_FALSE(transformer.reverseTransformedValue(nil).isValid());
}

TEST(KTStringColorTransformer, ColorsOfOtherModelsAreConverted)
{
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromHsv(120, 255, 255)), u"0 1 0 1"_s);
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor::fromCmyk(0, 255, 255, 0)), u"1 0 0 1"_s);
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor()), u"0 0 0 0"_s);
    EXPECT_EQ(KTStringColorTransformer().reverseTransformedValue(QColor()), QVariant(u"0 0 0 0"_s));
}

TEST(KTStringColorTransformer, TextsThatAreNoColors)
{
    const auto textOf = [](const QString &text) {
        return KTAdditions::ktStringRepresentation(KTAdditions::ktColorWithString(text));
    };
    EXPECT_EQ(textOf(u"0.2 0.4 0.6"_s), u"0.2 0.4 0.6 1"_s);
    EXPECT_EQ(textOf(u"  1\t0  0 1  "_s), u"1 0 0 1"_s);
    EXPECT_EQ(textOf(u"2 -1 0 9"_s), u"1 0 0 1"_s);
    EXPECT_EQ(textOf(u"cow"_s), u"0 0 0 1"_s);
    EXPECT_EQ(textOf(u"1e999 nan 0 1"_s), u"0 0 0 1"_s);
    for (const QString &text : hostileTexts())
        EXPECT_TRUE(KTAdditions::ktColorWithString(text).isValid());
}

TEST(KTStringColorTransformer, OtherTypesFailAnAssertion)
{
    const KTStringColorTransformer transformer;
    const QString output = standardErrorOf([&] {
        EXPECT_RAISES(transformer.transformedValue(QColor(Qt::red)),
                      NSInternalInconsistencyException, u"value must be NSString"_s);
        EXPECT_RAISES(transformer.reverseTransformedValue(u"1 0 0 1"_s),
                      NSInternalInconsistencyException, u"value must be NSColor"_s);
    });
    EXPECT_TRUE(output.contains(u"ValueTransformers/KTStringColorTransformer:"));
}
