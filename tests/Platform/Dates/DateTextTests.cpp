#include <KTUtility/Platform/Dates/DateText_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(DateText, ABareHourIsOneOrTwoDigitsOfAnyScript)
{
    const std::pair<QString, int> rows[] = {
        {u"5"_s, 5}, {u"5:"_s, 5},   {u"05"_s, 5},    {u"17"_s, 17},  {u"0"_s, 0},  {u"99"_s, 99},
        {u"٥"_s, 5}, {u"۱۲:"_s, 12}, {u"１７"_s, 17}, {u"𞥕"_s, 5}, {u"1٢"_s, 12}};
    for (const auto &[text, hour] : rows)
        EXPECT_EQ(bareHourIn(text), hour) << qPrintable(text);
}

TEST(DateText, ABareHourIsNothingElse)
{
    for (const QString &text : {QString(), u""_s, u":"_s, u"005"_s, u"5::"_s, u"5 "_s, u" 5"_s,
                                u"-5"_s, u"+5"_s, u"5x"_s, u"5.0"_s, u"五"_s, u"½"_s, u"²³x"_s})
        EXPECT_FALSE(bareHourIn(text)) << qPrintable(text);
    for (const QString &text : hostileTexts())
        EXPECT_LE(bareHourIn(text).value_or(0), 99);
}
