#include <KTUtility/NSError>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSError, IsNilUntilItSaysSomething)
{
    EXPECT_TRUE(NSError().isNil());
    EXPECT_EQ(NSError().description(), QString());
    EXPECT_EQ(NSError(), NSError());
}

TEST(NSError, DescribesItselfForLogs)
{
    const NSError error(NSCocoaErrorDomain, NSFormattingError, u"No number"_s);
    EXPECT_FALSE(error.isNil());
    EXPECT_EQ(error.localizedDescription(), u"No number");
    EXPECT_EQ(error.description(), u"Error Domain=NSCocoaErrorDomain Code=2048 \"No number\"");
}
