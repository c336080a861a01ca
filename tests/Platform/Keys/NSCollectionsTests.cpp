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

TEST(NSCollections, KeysAndElementsArePassedAsTheyAre)
{
    TestField field;
    NSMapTable<QVariant, TestField *> table;
    table.setObject(&field, 3L);
    table.setObject(&field, &field);
    EXPECT_EQ(table[3], &field);
    EXPECT_EQ(table[&field], &field);
    EXPECT_EQ(table[u"3"], nullptr);
    EXPECT_TRUE(table.contains(3UL));
    NSSet set;
    EXPECT_TRUE(set.addObject(&field));
    EXPECT_FALSE(set.addObject(QPointer<TestField>(&field)));
    set.insert(u"text");
    EXPECT_TRUE(set.contains(QStringView(u"text")));
    set.remove(&field);
    EXPECT_EQ(set, NSSet{u"text"_s});
}

TEST(NSCollections, ASetInAVariantIsAList)
{
    const QVariant set = QVariant::fromValue(NSSet{7});
    EXPECT_TRUE(set.canConvert<QVariantList>());
    EXPECT_EQ(set.toList(), QVariantList{7});
    EXPECT_EQ((NSSet{7, 7.0}).allObjects().size(), 1);
}

TEST(NSCollections, SetsOfEqualValuesAreEqual)
{
    EXPECT_EQ(NSSet({QVariant::fromValue(NSDecimalNumber(1))}), NSSet({1}));
    EXPECT_EQ(NSSet({QStringList{u"a"_s}}), NSSet({QVariantList{u"a"_s}}));
    EXPECT_FALSE(NSSet({1, 2}) == NSSet({1}));
    EXPECT_FALSE(NSSet({1}) == NSSet({2}));
}
