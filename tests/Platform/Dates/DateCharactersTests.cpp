#include <KTUtility/Platform/Dates/DateCharacters_p.h>

#include "support/TestSupport.h"

#include <unicode/uchar.h>

using namespace KTPrivate;

TEST(DateCharacters, ClassesWhitespaceAsICUDoes)
{
    for (UChar32 unit = 0; unit <= 0xFFFF; ++unit) {
        const bool isPatternWhitespace = u_hasBinaryProperty(unit, UCHAR_PATTERN_WHITE_SPACE);
        ASSERT_EQ(DateCharacters::isWhitespaceOfPatterns(char16_t(unit)), isPatternWhitespace)
            << unit;
        ASSERT_EQ(DateCharacters::isWhitespaceOfTexts(char16_t(unit)),
                  isPatternWhitespace || u_isUWhiteSpace(unit))
            << unit;
    }
}

TEST(DateCharacters, ClassesASCII)
{
    for (char16_t unit = 0; unit < 0x80; ++unit) {
        ASSERT_EQ(DateCharacters::isDigit(unit), bool(u_isdigit(unit)));
        ASSERT_EQ(DateCharacters::isASCIILetter(unit), bool(u_isalpha(unit)));
        ASSERT_EQ(UChar32(DateCharacters::lowered(unit)), u_tolower(unit));
        ASSERT_FALSE(DateCharacters::isEastAsian(unit));
    }
}

TEST(DateCharacters, HasNoNumbersAmongEastAsianCharacters)
{
    for (UChar32 unit = 0; unit <= 0xFFFF; ++unit) {
        if (!DateCharacters::isEastAsian(char16_t(unit)))
            continue;
        ASSERT_FALSE(DateCharacters::isWhitespaceOfTexts(char16_t(unit))) << unit;
        ASSERT_NE(u_charType(unit), U_FORMAT_CHAR) << unit;
    }
    EXPECT_TRUE(DateCharacters::isEastAsian(u'年'));
    EXPECT_TRUE(DateCharacters::isEastAsian(u'ア'));
    EXPECT_TRUE(DateCharacters::isEastAsian(u'월'));
    EXPECT_FALSE(DateCharacters::isEastAsian(u'é'));
}
