// With common forms, whatever a field shows reads back: every value, every style, all locales that
// ICU has, and no exceptions.

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/KTDurationFormatter>
#include <KTUtility/KTTimeFormatter>
#include <KTUtility/NSDecimalNumber>

#include "FormatterSupport.h"
#include "support/TestSupport.h"

#include <unicode/locid.h>

#include <array>

using namespace Qt::StringLiterals;

namespace {
QStringList allLocales()
{
    int32_t count = 0;
    const icu::Locale *const locales = icu::Locale::getAvailableLocales(count);
    QStringList names{u"ja_JP@calendar=japanese"_s, u"de_DE@calendar=buddhist"_s,
                      u"he_IL@calendar=hebrew"_s,   u"zh_CN@calendar=chinese"_s,
                      u"ar_EG@calendar=islamic"_s,  u"am_ET@calendar=ethiopic"_s};
    for (int32_t index = 0; index < count; ++index)
        names.append(QString::fromLatin1(locales[index].getName()));
    return names;
}

/// Fails for the first values that do not come back, and counts the others.
class Failures
{
public:
    void add(const QString &what)
    {
        constexpr int ShownFailures = 20;
        if (++_count <= ShownFailures)
            ADD_FAILURE() << qPrintable(what);
    }
    ~Failures() { EXPECT_EQ(_count, 0); }
    Failures() = default;
    Failures(const Failures &) = delete;
    Failures &operator=(const Failures &) = delete;

private:
    int _count = 0;
};

QDateTime inNewYork(const QDate &day, const QTime &time)
{
    return QDateTime(day, time, NSCalendar::systemTimeZone());
}

/// Leap days, midnight, noon, the last second, years whose last two digits are ambiguous, and both
/// sides of both changes of summer time.
QList<QDateTime> someDates()
{
    const QTimeZone zone = NSCalendar::systemTimeZone();
    QList<QDateTime> dates{inNewYork({2008, 2, 29}, {0, 0}), inNewYork({2008, 3, 5}, {12, 0}),
                           inNewYork({1905, 7, 12}, {23, 59, 59}),
                           inNewYork({2049, 12, 31}, {12, 5, 9})};
    for (const int month : {1, 7}) {
        const QDateTime change = zone.nextTransition(inNewYork({2008, month, 1}, {0, 0})).atUtc;
        for (const int seconds : {-1800, 1800})
            dates.append(change.addSecs(seconds));
    }
    return dates;
}

struct Styles
{
    uint date;
    uint time;
    bool hasYear;
};

QList<Styles> allStyles()
{
    QList<Styles> styles;
    for (uint date = NSDateFormatterNoStyle; date <= NSDateFormatterFullStyle; ++date) {
        for (uint time = NSDateFormatterNoStyle; time <= NSDateFormatterFullStyle; ++time) {
            if (date != NSDateFormatterNoStyle || time != NSDateFormatterNoStyle)
                styles.append({date, time, true});
            if (date == NSDateFormatterShortStyle)
                styles.append({date, time, false});
        }
    }
    return styles;
}

void setStyles(KTDateTimeFormatter &formatter, const Styles &styles)
{
    formatter.setReadsCommonForms(true);
    formatter.setDisplayTime(styles.time != NSDateFormatterNoStyle);
    formatter.setDateStyle(styles.date);
    formatter.setTimeStyle(styles.time);
    formatter.setDisplayYear(styles.hasYear);
}

/// Whether the parts of a date that a style shows are the same.
bool isSame(const QDateTime &read, const QDateTime &shown, const Styles &styles)
{
    const QString left = wallTime(read);
    const QString right = wallTime(shown);
    const bool isSameDay = styles.date == 0 || !styles.hasYear || left.left(10) == right.left(10);
    return isSameDay && (styles.time == 0 || left.mid(11, 5) == right.mid(11, 5));
}

QString textOf(const NSFormatter &formatter, const QVariant &value, bool isEditing)
{
    return isEditing ? formatter.editingStringForObjectValue(value)
                     : formatter.stringForObjectValue(value);
}

/// Whether a decimal comes back from the text that it is shown or edited as.
void checkDecimal(const KTReadingFormatter &formatter, const NSDecimalNumber &number,
                  const QString &note, Failures *failures)
{
    for (const bool isEditing : {false, true}) {
        const QString text = textOf(formatter, QVariant::fromValue(number), isEditing);
        QVariant value;
        const bool isRead = formatter.getObjectValue(&value, text);
        if (!isRead || value.value<NSDecimalNumber>() != number)
            failures->add(note + u": " + text);
    }
}

QList<NSDecimalNumber> someNumbers()
{
    const auto decimal = NSDecimalNumber::decimalNumberWithMantissa;
    return {decimal(0, 0, false),          decimal(1234567, 0, false), decimal(1234567, 0, true),
            decimal(123456789, -2, false), decimal(5, -2, true),       decimal(1234, 0, false)};
}

/// Both ways of showing negative numbers, with and without separators, edited as shown or not.
template<typename Formatter, typename Check>
void withNumberOptions(Formatter &formatter, const Check &check)
{
    for (const bool hasParens : {false, true}) {
        for (const bool hasSeparators : {false, true}) {
            formatter.setFormatNegativeUsingParens(hasParens);
            formatter.setDisplayThousandsSeparator(hasSeparators);
            formatter.setUseDisplayStringForEditingString(hasParens);
            formatter.setRejectsUnevenGroups(hasSeparators);
            check();
        }
    }
}
} // namespace

TEST(CommonFormsRoundTrip, DatesAndTimes)
{
    Failures failures;
    const QList<QDateTime> dates = someDates();
    for (const QString &locale : allLocales()) {
        for (const Styles &styles : allStyles()) {
            const auto formatter = formatterIn<KTDateTimeFormatter>(locale);
            setStyles(*formatter, styles);
            for (const QDateTime &date : dates) {
                const QString text = formatter->stringForObjectValue(date);
                QVariant value;
                const bool isBack = formatter->getObjectValue(&value, text) &&
                                    formatter->reading().form == u"display" &&
                                    formatter->stringForObjectValue(value) == text &&
                                    isSame(value.toDateTime(), date, styles);
                if (!isBack)
                    failures.add(locale + u": " + text + u", by " + formatter->reading().form);
            }
        }
    }
}

TEST(CommonFormsRoundTrip, TimesOfDay)
{
    Failures failures;
    for (const QString &locale : allLocales()) {
        for (uint style = NSDateFormatterShortStyle; style <= NSDateFormatterFullStyle; ++style) {
            const auto formatter = formatterIn<KTTimeFormatter>(locale);
            formatter->setReadsCommonForms(true);
            for (const QString &time : {u"T00:00"_s, u"T12:00"_s, u"T23:59:59"_s, u"T02:30:05"_s}) {
                QVariant typed;
                formatter->setTimeStyle(style);
                ASSERT_TRUE(formatter->getObjectValue(&typed, time));
                const QString text = formatter->stringForObjectValue(typed);
                QVariant value;
                const bool isBack =
                    formatter->getObjectValue(&value, text) &&
                    formatter->stringForObjectValue(value) == text &&
                    wallTime(value.toDateTime()).left(16) == wallTime(typed.toDateTime()).left(16);
                if (!isBack)
                    failures.add(locale + u": " + text + u", by " + formatter->reading().form);
            }
        }
    }
}

TEST(CommonFormsRoundTrip, Numbers)
{
    Failures failures;
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        KTNumberFormatter formatter;
        formatter.setReadsCommonForms(true);
        formatter.setDecimalPlaces(2);
        withNumberOptions(formatter, [&] {
            for (const NSDecimalNumber &number : someNumbers())
                checkDecimal(formatter, number, locale, &failures);
        });
    }
}

TEST(CommonFormsRoundTrip, Money)
{
    Failures failures;
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        for (const char *const currency : {"USD", "EUR", "KWD", "INR"}) {
            KTCurrencyFormatter formatter;
            formatter.setReadsCommonForms(true);
            formatter.setCurrencyType(QString::fromLatin1(currency));
            withNumberOptions(formatter, [&] {
                for (const NSDecimalNumber &number : someNumbers())
                    checkDecimal(formatter, number, locale + u' ' + QString::fromLatin1(currency),
                                 &failures);
            });
        }
    }
}

TEST(CommonFormsRoundTrip, Durations)
{
    Failures failures;
    for (const QString &locale : allLocales()) {
        const UserLocale user(locale);
        for (const bool isAbbreviated : {false, true}) {
            KTDurationFormatter formatter;
            formatter.setReadsCommonForms(true);
            formatter.setUseAbbreviations(isAbbreviated);
            for (const qint64 seconds : {1, 59, 60, 5400, 86'400, 694'861, 31'536'000})
                checkDecimal(formatter, NSDecimalNumber(seconds), locale, &failures);
        }
    }
}
