#include <KTUtility/NSDecimalNumber>
#include <KTUtility/ValueMatcher>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(ValueMatcher, AgreesWithIsEqualToOverAllPairs)
{
    TestField field;
    const QVariantList values = {
        QVariant(),
        QString(),
        u""_s,
        u"a"_s,
        u"1"_s,
        0,
        1,
        1.0,
        true,
        false,
        qlonglong(1),
        QVariant::fromValue(NSDecimalNumber(1)),
        QVariant::fromValue(&field),
        QVariant::fromValue<TestField *>(nullptr),
        QVariantList{1},
        NSNull(),
        QByteArray("a"),
    };
    for (const QVariant &wanted : values) {
        const ValueMatcher matcher(wanted);
        for (const QVariant &candidate : values)
            EXPECT_EQ(matcher.matches(candidate), NSObject::isEqualTo(candidate, wanted))
                << testing::PrintToString(candidate) << " and " << testing::PrintToString(wanted);
    }
}
