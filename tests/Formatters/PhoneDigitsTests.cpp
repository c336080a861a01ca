#include <KTUtility/Formatters/PhoneDigits_p.h>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace KTPrivate;

TEST(PhoneDigits, LeavesOutSeparatorsAndNothingElse)
{
    const std::pair<const char16_t *, const char16_t *> texts[] = {
        {u"(415) 555-1234", u"4155551234"},
        {u"04/12.34,5", u"0412345"},
        {u"[1]{2}", u"12"},
        {u"+49 30", u"+4930"},
        {u"5_1\t2", u"5_1\t2"},
        {u" -,./()[]{}", u""},
    };
    for (const auto &[text, expected] : texts)
        EXPECT_EQ(PhoneDigits::withoutSeparators(QString::fromUtf16(text)), expected);
}

TEST(PhoneDigits, FindsTheLiteralsOfAPatternWhereverTheyStand)
{
    EXPECT_EQ(PhoneDigits::literalsOf(u"(0161) ### ####"_s), u"0161");
    EXPECT_EQ(PhoneDigits::literalsOf(u"+44 ## x #"_s), u"+44x");
    EXPECT_EQ(PhoneDigits::literalsOf(u"##-##"_s), u"");
}

TEST(PhoneDigits, ReadsDigitsOfAnyScript)
{
    EXPECT_EQ(PhoneDigits::valuesOf(u"09"), QList<int>({0, 9}));
    EXPECT_EQ(PhoneDigits::valuesOf(u"٣९"), QList<int>({3, 9}));
    EXPECT_EQ(PhoneDigits::valuesOf(u"𝟒1"), QList<int>({4, 1})); // the first is of two units
    EXPECT_EQ(PhoneDigits::valuesOf(u""), QList<int>());
    for (const QStringView text : {u"1a", u"+1", u"1 2", u"½"})
        EXPECT_FALSE(PhoneDigits::valuesOf(text).has_value());
}
