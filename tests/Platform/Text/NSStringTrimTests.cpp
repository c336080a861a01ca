#include <KTUtility/NSCharacterSet>
#include <KTUtility/NSStringTrim>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSStringTrim, TrimsByCodePoint)
{
    const auto faces = NSCharacterSet::characterSetWithCharactersInString(u"😀");
    EXPECT_EQ(NSString::stringByTrimmingCharactersInSet(u"😀a😀b😀😀"_s, faces), u"a😀b"_s);
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(u"\u00A0\u2028 a b\u200B\r\n"_s),
              u"a b"_s);
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(u" \n"_s), u""_s);
    EXPECT_TRUE(NSString::stringByTrimmingWhitespaceAndNewlines(QString()).isNull());
}
