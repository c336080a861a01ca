#include <KTUtility/NSStringNormalization>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QString decomposed(const char16_t *text)
{
    return NSString::decomposedStringWithCompatibilityMapping(QString::fromUtf16(text));
}

QString folded(const char16_t *text)
{
    return NSString::foldedStringWithCompatibilityMapping(QString::fromUtf16(text));
}
} // namespace

TEST(NSStringNormalization, MakesCharactersPlain)
{
    EXPECT_EQ(decomposed(u"１²"), u"12");
    EXPECT_EQ(decomposed(u"½"), u"1\u20442");
    EXPECT_EQ(decomposed(u"é"), u"e\u0301");
    EXPECT_EQ(decomposed(u"ﬁ"), u"fi");
    EXPECT_EQ(decomposed(u"（１２）"), u"(12)");
    EXPECT_EQ(decomposed(u"plain"), u"plain");
    EXPECT_EQ(decomposed(u""), u"");
    EXPECT_TRUE(NSString::decomposedStringWithCompatibilityMapping(QString()).isNull());
}

TEST(NSStringNormalization, FoldsCases)
{
    EXPECT_EQ(folded(u"ＵＳＤ"), u"usd");
    EXPECT_EQ(folded(u"USD"), u"usd");
    EXPECT_EQ(folded(u"Straße"), u"strasse");
    EXPECT_EQ(folded(u"É"), u"é");
}

TEST(NSStringNormalization, IsLinear)
{
    const QString text = megabyteOf(u"é\u0323ﬁ"_s);
    const QString plain = NSString::decomposedStringWithCompatibilityMapping(text);
    EXPECT_GT(plain.size(), text.size());
    EXPECT_EQ(NSString::decomposedStringWithCompatibilityMapping(plain), plain);
    for (const QString &hostile : hostileTexts())
        NSString::foldedStringWithCompatibilityMapping(hostile);
}
