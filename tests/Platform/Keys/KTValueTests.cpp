#include <KTUtility/KTValue>
#include <KTUtility/NSObject>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QVariant given(const KTValue &value = {})
{
    return value;
}

const QVariant *addressOf(const KTValue &value)
{
    return &value.variant();
}
} // namespace

TEST(KTValue, TakesValuesOfEveryType)
{
    TestField field;
    EXPECT_EQ(given(3L), QVariant(3));
    EXPECT_EQ(given(u"x"), QVariant(u"x"_s));
    EXPECT_EQ(given(&field), QVariant::fromValue(&field));
    EXPECT_EQ(given(std::optional(2)), QVariant(2));
    EXPECT_EQ(given(QVariantList{1, u"a"_s}), QVariant(QVariantList{1, u"a"_s}));
}

TEST(KTValue, IsNilOfNothing)
{
    EXPECT_FALSE(given().isValid());
    EXPECT_FALSE(given({}).isValid());
    EXPECT_FALSE(given(nullptr).isValid());
    EXPECT_TRUE(isNSNull(given(NSNull())));
}

TEST(KTValue, DoesNotCopyVariants)
{
    const QVariant value = u"text"_s;
    EXPECT_EQ(addressOf(value), &value);
}
