#include <KTUtility/NSFormatter>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSFormatter, ShowsAndReadsNothingByItself)
{
    const NSFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(1), QString());
    EXPECT_EQ(formatter.editingStringForObjectValue(1), QString());
    EXPECT_FALSE(formatter.attributedStringForObjectValue(1).has_value());
    QVariant value = 7;
    EXPECT_FALSE(formatter.getObjectValue(&value, u"1"_s));
    EXPECT_EQ(value, 7);
}
