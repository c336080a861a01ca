// Tables that are made once.

#include <KTUtility/CommonForms/Text/SharedTables_p.h>

#include "support/TestSupport.h"

#include <thread>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(SharedTables, AreMadeOnceForEachName)
{
    SharedTables<QString> tables;
    int count = 0;
    const auto make = [&count] { return QString::number(++count); };
    const auto first = tables.tableOf(u"a"_s, make);
    EXPECT_EQ(*first, u"1"_s);
    EXPECT_EQ(tables.tableOf(u"a"_s, make), first);
    EXPECT_EQ(*tables.tableOf(u"b"_s, make), u"2"_s);
}

TEST(SharedTables, StayWithWhoHasThemWhenThereAreTooMany)
{
    SharedTables<int> tables;
    const auto first = tables.tableOf(u"first"_s, [] { return 7; });
    for (int index = 0; index < 3000; ++index)
        EXPECT_EQ(*tables.tableOf(QString::number(index), [index] { return index; }), index);
    EXPECT_EQ(*first, 7);
}

TEST(SharedTables, AreOneForAllThreads)
{
    SharedTables<int> tables;
    std::vector<const int *> found(8);
    {
        std::vector<std::jthread> threads;
        for (const int *&table : found)
            threads.emplace_back([&] { table = tables.tableOf(u"one"_s, [] { return 1; }).get(); });
    }
    for (const int *table : found)
        EXPECT_EQ(table, found.front());
}
