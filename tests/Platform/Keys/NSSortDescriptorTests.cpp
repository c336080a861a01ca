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
