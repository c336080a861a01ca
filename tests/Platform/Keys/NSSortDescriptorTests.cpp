#include <KTUtility/NSException>
#include <KTUtility/NSSortDescriptor>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(NSSortDescriptor, SortsBySeveralKeysInBothDirections)
{
    TestField a1(u"a"_s, 1);
    TestField a2(u"a"_s, 2);
    TestField b1(u"b"_s, 1);
    const QString name = u"name"_s;
    const QString size = u"size"_s;
    const QList<TestField *> fields{&b1, &a1, &a2};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{name, true}, {size, false}}),
              QList<TestField *>({&a2, &a1, &b1}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{size, true}, {name, false}}),
              QList<TestField *>({&b1, &a1, &a2}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {}), fields);
}

TEST(NSSortDescriptor, KeysMayBePaths)
{
    TestField low(u"low"_s, 1);
    TestField high(u"high"_s, 2);
    TestField first(u"first"_s);
    TestField second(u"second"_s);
    TestField orphan(u"orphan"_s);
    first._parent = &low;
    second._parent = &high;
    const QList<TestField *> fields{&second, &first, &orphan};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{u"parent.size"_s}}),
              QList<TestField *>({&orphan, &first, &second}));
    EXPECT_THROW(NSSortDescriptor::sorted(fields, {{u"parent.nmae"_s}}), NSException);
    const auto nested = [](int x) { return QVariantMap{{u"m"_s, QVariantMap{{u"x"_s, x}}}}; };
    EXPECT_EQ(NSSortDescriptor::sorted(QVariantList{nested(2), nested(1)}, {{u"m.x"_s}}),
              QVariantList({nested(1), nested(2)}));
}

TEST(NSSortDescriptor, TextsSortByThemselvesAndTheirLength)
{
    const QStringList texts{u"ccc"_s, u"a"_s, u"bb"_s, QString()};
    EXPECT_EQ(NSSortDescriptor::sorted(texts, {{u"length"_s, false}}),
              QStringList({u"ccc"_s, u"bb"_s, u"a"_s, QString()}));
    EXPECT_EQ(NSSortDescriptor::sorted(QVariantList{2, u"b"_s, 1}, {{u"self"_s}}),
              QVariantList({1, 2, u"b"_s}));
}
