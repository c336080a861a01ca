#include <KTUtility/NSWeakMapTable>

#include "support/ObservedModel.h"
#include "support/TestSupport.h"

TEST(NSWeakMapTable, HoldsBothSidesWeakly)
{
    NSWeakMapTable<QObject, ObservedRecord> table;
    QObject key, other;
    auto object = std::make_unique<ObservedRecord>();
    table.setObject(object.get(), &key);
    EXPECT_EQ(table.objectForKey(&key), object.get());
    EXPECT_EQ(table.objectForKey(&other), nullptr);
    EXPECT_EQ(table.count(), 1);
    object.reset();
    EXPECT_EQ(table.objectForKey(&key), nullptr);
    EXPECT_EQ(table.count(), 0);
    ObservedRecord another;
    auto shortLived = std::make_unique<QObject>();
    const QObject *const address = shortLived.get();
    table.setObject(&another, shortLived.get());
    EXPECT_EQ(table.objectForKey(address), &another);
    shortLived.reset();
    EXPECT_EQ(table.objectForKey(address), nullptr);
    EXPECT_EQ(table.objectForAddress(address), &another);
    table.setObject(&another, &key);
    table.setObject(nullptr, &key);
    EXPECT_EQ(table.objectForKey(&key), nullptr);
    table.removeAllObjects();
    EXPECT_EQ(table.objectForAddress(address), nullptr);
}
