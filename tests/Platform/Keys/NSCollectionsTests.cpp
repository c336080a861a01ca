#include <KTUtility/NSCollections>
#include <KTUtility/NSDecimalNumber>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
QVariant decimal(const char16_t *text)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text));
}
} // namespace

TEST(NSCollections, SetsAndTablesUseThePlatformsEquality)
{
    NSSet set{1, u"1"_s};
    EXPECT_EQ(set.size(), 2);
    EXPECT_FALSE(set.addObject(1.0));
    EXPECT_TRUE(set.contains(decimal(u"1.00")));
    set.remove(true);
    EXPECT_EQ(set, NSSet{u"1"_s});

    NSMapTable<QVariant, int> table;
    table.setObject(5, 1);
    table.setObject(6, 1.0);
    EXPECT_EQ(table.count(), 1);
    EXPECT_EQ(table.objectForKey(1), 6);
    EXPECT_FALSE(table.objectForKey(2).has_value());
}

TEST(NSCollections, BoxingMakesNilOfNullTextsAndPointers)
{
    EXPECT_FALSE(NSBoxed(QString()).isValid());
    EXPECT_TRUE(NSBoxed(u""_s).isValid());
    EXPECT_FALSE(NSBoxed(static_cast<TestField *>(nullptr)).isValid());
    EXPECT_FALSE(NSBoxed(std::shared_ptr<TestField>()).isValid());
    const auto field = std::make_shared<TestField>();
    EXPECT_EQ(NSBoxed(field).value<TestField *>(), field.get());
}
