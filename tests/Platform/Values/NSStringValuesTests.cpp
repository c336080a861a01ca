#include <KTUtility/NSStringValues>

#include "support/TestSupport.h"

#include <limits>

TEST(NSStringValues, ReadsTheStartAndClamps)
{
    EXPECT_EQ(NSString::integerValue(u"\n +12x"), 12);
    EXPECT_EQ(NSString::integerValue(u"- 5"), 0);
    EXPECT_EQ(NSString::integerValue(u"١٢"), 0);
    EXPECT_EQ(NSString::integerValue(u"-99999999999999999999"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(NSString::doubleValue(u" -.5e1,"), -5);
    EXPECT_EQ(NSString::doubleValue(u"1e"), 1);
    EXPECT_EQ(NSString::doubleValue(u"."), 0);
    EXPECT_FALSE(NSString::boolValue(QStringView()));
}
