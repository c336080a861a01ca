#include <KTUtility/Platform/Dates/NSDateCharacters_p.h>

#include "support/TestSupport.h"

#include <unicode/uchar.h>

TEST(NSDateCharacters, ClassesBlanksAsICUDoes)
{
    for (UChar32 unit = 0; unit <= 0xFFFF; ++unit) {
        const bool isPatternBlank = u_hasBinaryProperty(unit, UCHAR_PATTERN_WHITE_SPACE);
        ASSERT_EQ(NSDateCharacters::isBlankOfPatterns(char16_t(unit)), isPatternBlank) << unit;
        ASSERT_EQ(NSDateCharacters::isBlank(char16_t(unit)),
                  isPatternBlank || u_isUWhiteSpace(unit))
            << unit;
    }
}

TEST(NSDateCharacters, ClassesASCII)
{
    for (char16_t unit = 0; unit < 0x80; ++unit) {
        ASSERT_EQ(NSDateCharacters::isDigit(unit), bool(u_isdigit(unit)));
        ASSERT_EQ(NSDateCharacters::isASCIILetter(unit), bool(u_isalpha(unit)));
        ASSERT_EQ(UChar32(NSDateCharacters::lowered(unit)), u_tolower(unit));
        ASSERT_FALSE(NSDateCharacters::isEastAsian(unit));
    }
}

TEST(NSDateCharacters, HasNoNumbersAmongEastAsianCharacters)
{
    for (UChar32 unit = 0; unit <= 0xFFFF; ++unit) {
        if (!NSDateCharacters::isEastAsian(char16_t(unit)))
            continue;
        ASSERT_FALSE(NSDateCharacters::isBlank(char16_t(unit))) << unit;
        ASSERT_NE(u_charType(unit), U_FORMAT_CHAR) << unit;
    }
    EXPECT_TRUE(NSDateCharacters::isEastAsian(u'年'));
    EXPECT_TRUE(NSDateCharacters::isEastAsian(u'ア'));
    EXPECT_TRUE(NSDateCharacters::isEastAsian(u'월'));
    EXPECT_FALSE(NSDateCharacters::isEastAsian(u'é'));
}
