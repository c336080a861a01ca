// What is shown reads back, in the environment's locale and zone.

#include "EnvironmentSupport.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTPhoneNumberFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSCalendar>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

using environment_support::wallTime;

namespace {
const QList<double> &numbers()
{
    static const QList<double> samples = {0, 1, -1, 0.5, -0.25, 999, 1000, -1234.56, 1234567.89};
    return samples;
}

void expectReadBack(const NSFormatter &formatter, double number, const QString &text)
{
    QVariant value;
    EXPECT_TRUE(formatter.getObjectValue(&value, text)) << text.toStdString();
    EXPECT_EQ(value.value<NSDecimalNumber>().doubleValue(), number) << text.toStdString();
}

void setOptions(KTNumberFormatter &formatter, int combination)
{
    formatter.setFormatNegativeUsingParens((combination & 1) != 0);
    formatter.setDisplayThousandsSeparator((combination & 2) != 0);
}

/// Days of all seasons, of short and long years, and at the ends of months.
QList<QDateTime> dates()
{
    QList<QDateTime> list;
    for (const int year : {1989, 1999, 2000, 2008, 2018, 2019, 2024}) {
        for (int month = 1; month <= 12; ++month) {
            const QDate first(year, month, 1);
            list += QDateTime(first, QTime(9, 5, 7), environment_support::zone());
            list += QDateTime(first.addMonths(1).addDays(-1), QTime(23, 30),
                              environment_support::zone());
        }
    }
    return list;
}

/// Whether a formatter shows the instant again that it reads from what it shows.
void expectDateBack(const KTDateTimeFormatter &formatter, const QDateTime &date,
                    qsizetype comparedLength)
{
    const QString text = formatter.stringForObjectValue(date);
    QVariant value;
    ASSERT_TRUE(formatter.getObjectValue(&value, text)) << text.toStdString();
    EXPECT_EQ(formatter.stringForObjectValue(value), text);
    EXPECT_EQ(wallTime(value.toDateTime()).left(comparedLength),
              wallTime(date).left(comparedLength))
        << text.toStdString();
}

constexpr qsizetype DayLength = 10;
constexpr qsizetype MinuteLength = 16;
} // namespace

TEST(EnvironmentReading, NumbersComeBack)
{
    for (int combination = 0; combination < 4; ++combination) {
        KTNumberFormatter formatter;
        formatter.setDecimalPlaces(2);
        setOptions(formatter, combination);
        for (const double number : numbers()) {
            expectReadBack(formatter, number, formatter.stringForObjectValue(number));
            expectReadBack(formatter, number, formatter.editingStringForObjectValue(number));
        }
    }
}

TEST(EnvironmentReading, PlainDigitsAreReadEverywhere)
{
    const KTNumberFormatter formatter;
    for (const int number : {0, 7, 42, 1234, 987654321}) {
        expectReadBack(formatter, number, QString::number(number));
        if (number > 0) {
            expectReadBack(formatter, -number, QString::number(-number));
            expectReadBack(formatter, -number, u'(' + QString::number(number) + u')');
        }
    }
}

TEST(EnvironmentReading, MoneyComesBack)
{
    for (const char *const code : {"", "USD", "EUR", "JPY", "TRY", "EGP", "CHF"}) {
        for (int combination = 0; combination < 4; ++combination) {
            KTCurrencyFormatter formatter;
            if (*code)
                formatter.setCurrencyType(QString::fromLatin1(code));
            setOptions(formatter, combination);
            for (const int amount : {0, 5, -5, 1234567, -1234567})
                expectReadBack(formatter, amount, formatter.stringForObjectValue(amount));
        }
    }
}

TEST(EnvironmentReading, DurationsComeBack)
{
    KTDurationFormatter formatter;
    for (const bool abbreviates : {true, false}) {
        formatter.setUseAbbreviations(abbreviates);
        for (const int seconds : {1, 59, 60, 3661, 86400, 694861, 1'000'000'000})
            expectReadBack(formatter, seconds, formatter.stringForObjectValue(seconds));
    }
}

TEST(EnvironmentReading, PhoneNumbersAreTheSameEverywhere)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(0);
    EXPECT_EQ(formatter.stringForObjectValue(u"4155551234"_s), u"(415) 555-1234");
    EXPECT_EQ(formatter.stringForObjectValue(u"٤١٥٥٥٥١٢٣٤"_s), u"(415) 555-1234");
}

TEST(EnvironmentReading, DatesOfAllStylesComeBack)
{
    for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style) {
        KTDateTimeFormatter formatter;
        formatter.setDateStyle(style);
        for (const QDateTime &date : dates())
            expectDateBack(formatter, date, DayLength);
    }
}

TEST(EnvironmentReading, DatesWithTimesComeBackToTheMinute)
{
    for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style) {
        KTDateTimeFormatter formatter;
        formatter.setDateStyle(style);
        formatter.setDisplayTime(true);
        for (const QDateTime &date : dates())
            expectDateBack(formatter, date, MinuteLength);
    }
}

TEST(EnvironmentReading, TimesComeBackOnTheirDay)
{
    const KTTimeFormatter formatter;
    const NSCalendar calendar = NSCalendar::calendarOfLocale(NSLocale::currentLocale());
    NSDateComponents time;
    time.year = 2001;
    for (int minutes = 0; minutes < 24 * 60; minutes += 7) {
        time.hour = minutes / 60;
        time.minute = minutes % 60;
        expectDateBack(formatter, calendar.dateFromComponents(time), MinuteLength);
    }
}

TEST(EnvironmentReading, IsoDatesAreGregorianEverywhere)
{
    const KTDateTimeFormatter formatter;
    for (const char16_t *const text :
         {u"2008-03-05", u"1984-06-06T14:30:00", u"2024-02-29 23:59:59"}) {
        QVariant value;
        ASSERT_TRUE(formatter.getObjectValue(&value, QString::fromUtf16(text)));
        const QString found = wallTime(value.toDateTime());
        EXPECT_EQ(found.left(10), QString::fromUtf16(text).left(10));
        if (QStringView(text).size() > 10) {
            EXPECT_EQ(found.mid(11), QString::fromUtf16(text).mid(11));
        }
    }
}
