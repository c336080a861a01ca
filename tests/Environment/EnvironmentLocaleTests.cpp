// The user's locale and zone are those of the environment.

#include "EnvironmentSupport.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSCalendar>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <map>

using namespace Qt::StringLiterals;

namespace {
/// What people see of the number -1234.5, of money, and of a date.
struct Shown
{
    const char16_t *number;
    const char16_t *money;
    const char16_t *calendar;
};

const std::map<QString, Shown> &shownByLocale()
{
    static const std::map<QString, Shown> table = {
        {u"en_US"_s, {u"-1,234.5", u"$1,234.50", u"gregorian"}},
        {u"de_DE"_s, {u"-1.234,5", u"1.234,50 €", u"gregorian"}},
        {u"fr_CH"_s, {u"-1 234,5", u"1 234.50 CHF", u"gregorian"}},
        {u"ja_JP@calendar=japanese"_s, {u"-1,234.5", u"￥1,234", u"japanese"}},
        {u"tr_TR"_s, {u"-1.234,5", u"₺1.234,50", u"gregorian"}},
        {u"ar_EG"_s, {u"-١٬٢٣٤٫٥", u"١٬٢٣٤٫٥٠ ج.م.", u"gregorian"}},
        {u"hi_IN"_s, {u"-1,234.5", u"$1,234.50", u"gregorian"}},
    };
    return table;
}

/// Without marks of direction, and with plain spaces.
QString plain(QString text)
{
    text.remove(QChar(0x200F)).remove(QChar(0x200E)).remove(QChar(0x061C));
    for (const int space : {0x00A0, 0x202F})
        text.replace(QChar(space), u' ');
    return text;
}
} // namespace

TEST(EnvironmentLocale, IsTheOneOfTheEnvironment)
{
    const QString expected = environment_support::expectedLocale();
    if (!expected.isNull()) {
        EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), expected);
    }
    const QByteArray variable = qgetenv("LC_ALL");
    // "C" says nothing about its user, who is taken for an American.
    if (variable == "C" || variable == "POSIX") {
        EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"en_US");
    }
}

TEST(EnvironmentLocale, TheZoneIsTheOneOfTheEnvironment)
{
    const QDateTime date(QDate(2008, 3, 5), QTime(12, 0), KTPrivate::UTC);
    EXPECT_EQ(NSCalendar::systemTimeZone().offsetFromUtc(date),
              environment_support::zone().offsetFromUtc(date));
    const QDateTime summer = date.addDays(150);
    EXPECT_EQ(NSCalendar::systemTimeZone().offsetFromUtc(summer),
              environment_support::zone().offsetFromUtc(summer));
}

TEST(EnvironmentLocale, FormattersSpeakIt)
{
    const auto found = shownByLocale().find(NSLocale::currentLocale().localeIdentifier());
    ASSERT_NE(found, shownByLocale().end());
    KTNumberFormatter numbers;
    numbers.setDecimalPlaces(1);
    EXPECT_EQ(plain(numbers.stringForObjectValue(-1234.5)),
              QString::fromUtf16(found->second.number));
    const KTCurrencyFormatter money;
    EXPECT_EQ(plain(money.stringForObjectValue(1234.5)), QString::fromUtf16(found->second.money));
    EXPECT_EQ(NSCalendar::currentCalendar().calendarIdentifier(),
              QString::fromUtf16(found->second.calendar));
}
