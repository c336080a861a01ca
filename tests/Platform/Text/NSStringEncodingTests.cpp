#include <KTUtility/NSStringEncoding>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSStringEncoding, KnowsWhatFits)
{
    const QString lone(QChar(0xD800));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(u"日"_s, NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSISOLatin1StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(u"é"_s, NSASCIIStringEncoding));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(QString(), NSASCIIStringEncoding));
    EXPECT_EQ(NSString::stringWithUTF8Data("\xF0\x9F\x98\x80"), u"😀"_s);
    for (const char *bytes : {"\xFF", "\xC3", "\xE2\x82", "\xF5\x80\x80\x80", "a\x80"})
        EXPECT_TRUE(NSString::stringWithUTF8Data(bytes).isNull());
}
