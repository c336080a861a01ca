// One key of numbers is sorted by itself; several are compared. Both ways give one order.

#include <KTUtility/Platform/Queries/SortKeys_p.h>

#include <KTUtility/NSSortDescriptor>

#include "support/TestSupport.h"

#include <QRandomGenerator>
#include <QSet>

#include <cmath>
#include <limits>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Some values of a kind, with nil among them, many of them equal.
QList<QVariantMap> recordsOf(const QVariantList &values)
{
    QRandomGenerator random(17);
    QList<QVariantMap> records;
    for (int index = 0; index < 2'000; ++index)
        records += QVariantMap{{u"key"_s, values.at(random.bounded(int(values.size())))},
                               {u"index"_s, index}};
    return records;
}

QList<int> orderOf(const QList<QVariantMap> &records, const QList<NSSortDescriptor> &descriptors)
{
    QList<int> order;
    for (const QVariantMap &record : NSSortDescriptor::sorted(records, descriptors))
        order += record.value(u"index"_s).toInt();
    return order;
}
} // namespace

TEST(SortKeys, OneKeyOfNumbersIsInTheOrderOfComparing)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const QVariantList kinds[] = {
        {3, 1, 2, QVariant(), true},
        {std::numeric_limits<qint64>::min(), std::numeric_limits<qint64>::max(), -1, 0, QVariant()},
        {1.5, -0.0, 0.0, nan, -nan, QVariant(), 1e300, -2.5, -1e-300, -HUGE_VAL, HUGE_VAL},
        {QVariant()},
        {u"b"_s, u"a"_s, QString()},
        {1, u"a"_s, QVariant(), 2.5},
    };
    for (const QVariantList &values : kinds) {
        const QList<QVariantMap> records = recordsOf(values);
        for (const bool isAscending : {true, false}) {
            const NSSortDescriptor descriptor{u"key"_s, isAscending};
            const QList<int> order = orderOf(records, {descriptor});
            EXPECT_EQ(order, orderOf(records, {descriptor, descriptor}))
                << values.first().typeName() << isAscending;
            EXPECT_EQ(QSet<int>(order.begin(), order.end()).size(), records.size());
        }
    }
}

TEST(SortKeys, NothingIsInOrder)
{
    EXPECT_TRUE(SortKeys({}, {{u"key"_s}}).order().empty());
    EXPECT_TRUE(SortKeys({}, {}).order().empty());
}
