#include <KTUtility/NSSelector>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSSelector, CountsColons)
{
    EXPECT_EQ(NSSelector("accept:over:").name(), "accept");
    EXPECT_EQ(NSSelector("accept:over:").colons(), 2);
    EXPECT_EQ(NSSelector("flagged").colons(), 0);
    EXPECT_EQ(NSSelector("flagged").name(), "flagged");
    EXPECT_EQ(NSSelector("accept:over:").text(), u"accept:over:"_s);
    EXPECT_TRUE(NSSelector().isNull());
    EXPECT_EQ(NSSelector(u"a:"_s), NSSelector("a:"));
}
