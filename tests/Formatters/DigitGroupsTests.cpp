// Where separators may stand.

#include <KTUtility/Formatters/DigitGroups_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
struct Row
{
    const char *locale;
    const char16_t *text;
    const char16_t *value;
    bool fits;
};

NSDecimalNumber decimal(QStringView text)
{
    return NSDecimalNumber::decimalNumberWithString(text);
}

bool fits(const char *locale, const QString &text, const NSDecimalNumber &value)
{
    NSNumberFormatter formatter;
    formatter.setLocale(NSLocale(QString::fromLatin1(locale)));
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    return DigitGroups(formatter).fit(text, value);
}

void expectRows(std::initializer_list<Row> rows)
{
    for (const Row &row : rows) {
        const QString text = QString::fromUtf16(row.text);
        EXPECT_EQ(fits(row.locale, text, decimal(QString::fromUtf16(row.value))), row.fits)
            << row.locale << ' ' << text.toStdString();
    }
}
} // namespace

TEST(DigitGroups, LeaveThePointBehindACodeToTheNumber)
{
    expectRows({{"en_US", u"USD.50", u"0.5", true},
                {"da_DK", u"DKK,50", u"0.5", true},
                {"da_DK", u"kr,50", u"0.5", true},
                {"da_DK", u"kr ,50", u"0.5", true},
                {"en_IN", u"Rs.50", u"50", true}});
}

TEST(DigitGroups, HaveThreeDigits)
{
    expectRows({{"en_US", u"1234", u"1234", true},
                {"en_US", u"1,234", u"1234", true},
                {"en_US", u"12,345,678", u"12345678", true},
                {"en_US", u"1,234.5678", u"1234.5678", true},
                {"en_US", u"1,23", u"123", false},
                {"en_US", u"1,2345", u"12345", false},
                {"en_US", u"1234,567", u"1234567", false},
                {"en_US", u"1,23,456", u"123456", false},
                {"en_US", u"12,34.5", u"1234.5", false},
                {"de_CH", u"1,50", u"150", false},
                {"de_CH", u"1,500", u"1500", true},
                {"de_CH", u"1234,50", u"123450", false},
                {"fr_FR", u"1234.56", u"123456", false},
                {"de_DE", u"1.50", u"150", false},
                {"de_DE", u"1.234,5", u"1234.5", true},
                {"de_DE", u"1.234.567", u"1234567", true}});
}

TEST(DigitGroups, MayHaveTwoWhereTheLocaleHas)
{
    expectRows({{"en_IN", u"12,34,567", u"1234567", true},
                {"en_IN", u"1,23,456.5", u"123456.5", true},
                {"en_IN", u"1,234,567", u"1234567", true},
                {"en_IN", u"12,34,56", u"123456", false},
                {"en_IN", u"1,23", u"123", false},
                {"en_IN", u"123,45,678", u"12345678", false},
                {"en_US", u"12,34,567", u"1234567", false}});
}

TEST(DigitGroups, AreCutByAnySeparator)
{
    expectRows({{"en_US", u"1 234", u"1234", true},
                {"en_US", u"1\u00A0234", u"1234", true},
                {"en_US", u"1\u202F234", u"1234", true},
                {"en_US", u"1 , 234", u"1234", true},
                {"en_US", u"12 34", u"1234", false},
                {"de_CH", u"1'234.50", u"1234.5", true},
                {"de_CH", u"1’234.50", u"1234.5", true},
                {"de_CH", u"1\u02BC234.50", u"1234.5", true},
                {"de_CH", u"1'23", u"123", false},
                {"en_US", u"1\u200E234", u"1234", true}, // nobody sees it
                {"en_US", u"1·23", u"123", false}});
}

TEST(DigitGroups, EndBeforeTheFraction)
{
    expectRows({{"en_US", u".5", u"0.5", true},
                {"en_US", u"$.5", u"0.5", true},
                {"en_US", u"5.", u"5", true},
                {"de_DE", u".5", u"5", false},
                {"de_DE", u". 5", u"5", false},
                {"de_DE", u"-.5", u"-5", false},
                {"de_DE", u",5", u"0.5", true},
                {"en_US", u".1,234", u"0.1234", false},
                {"de_CH", u"0,00", u"0", true}}); // the same either way
}

TEST(DigitGroups, AreNotBegunByTheStopOfASign)
{
    expectRows({{"de_DE", u"Rs.5", u"5", true},
                {"de_DE", u"Rs. 5", u"5", true},
                {"de_DE", u"B/.5", u"5", true},
                {"de_DE", u"€.5", u"5", false}});
}

TEST(DigitGroups, HaveDigitsOfAnyScript)
{
    expectRows({{"ar_EG", u"١٬٢٣٤٫٥", u"1234.5", true},
                {"ar_EG", u"١٫٥", u"1.5", true},
                {"fa_IR", u"۱۲٬۳۴۵", u"12345", true},
                {"fa_IR", u"۱۲٬۳۴", u"1234", false},
                {"ja_JP", u"１，２３４", u"1234", true},
                {"en_US", u"\U0001D7CF,\U0001D7D0\U0001D7D1\U0001D7D2", u"1234", true},
                {"zh_CN", u"五", u"5", true}}); // no digits
}

TEST(DigitGroups, AreWantedWhereAForeignPointMayEndOne)
{
    expectRows({{"ar_EG", u"1,5", u"1.5", true},
                {"ar_EG", u"1,234", u"1.234", false},
                {"ar_EG", u"1,234", u"1234", true},
                {"ja_JP", u"1．234", u"1.234", true}}); // the locale's point in another width
}

TEST(DigitGroups, MayHaveAnExponentBehind)
{
    expectRows({{"en_US", u"1e3", u"1000", true},
                {"en_US", u"1.5E-3", u"0.0015", true},
                {"en_US", u"1,500E+3 ", u"1500000", true},
                {"de_CH", u"1,50e3", u"150000", false},
                {"sv_SE", u"1,5×10^3", u"1500", true},
                {"sv_SE", u"1,5×10^−3", u"0.0015", true},
                {"en_US", u"5 EUR", u"5", true},
                {"en_US", u"1e3 EUR", u"1000", true},
                {"en_US", u"EUR 5", u"5", true}});
}

TEST(DigitGroups, StandWithWhatBelongsToAnAmount)
{
    expectRows({{"en_US", u"($1,234.50)", u"-1234.5", true},
                {"en_US", u"-$1,23", u"-123", false},
                {"de_DE", u"5.00 €", u"500", false},
                {"en_US", u"5 Turkish lira (1922–2005)", u"5", true},
                {"en_US", u"bolívares (1871–2008) 5", u"5", true}});
}

TEST(DigitGroups, AreJudgedToTheLastDigit)
{
    const QString nines(60, u'9');
    EXPECT_TRUE(fits("en_US", nines, decimal(nines)));
    EXPECT_TRUE(fits("en_US", u"0." + nines, decimal(QString(u"0." + nines))));
    EXPECT_FALSE(fits("de_CH", nines + u",5", decimal(QString(nines + u'5'))));
}

TEST(DigitGroups, AnyTextIsJudged)
{
    for (const QString &text : hostileTexts()) {
        EXPECT_FALSE(fits("en_US", u"1,23 " + text, NSDecimalNumber(123))) << text.toStdString();
        EXPECT_TRUE(fits("en_US", u"123 x" + text, NSDecimalNumber(123))) << text.toStdString();
    }
    EXPECT_FALSE(fits("en_US", megabyteOf(u"9,"_s), NSDecimalNumber(9)));
}
