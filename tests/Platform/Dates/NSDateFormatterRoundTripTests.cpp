// What a formatter shows, it reads again: for every pair of styles in many locales, at times of the
// day and year that are easily got wrong.

#include <KTUtility/NSDateFormatter>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QTimeZone berlin()
{
    return QTimeZone("Europe/Berlin");
}

QDateTime inBerlin(int year, int month, int day, int hour, int minute, int second)
{
    return QDateTime(QDate(year, month, day), QTime(hour, minute, second), berlin());
}

const QList<QDateTime> &dates()
{
    static const QList<QDateTime> list{
        inBerlin(2008, 3, 5, 17, 30, 15),  inBerlin(2008, 9, 5, 5, 30, 15),
        inBerlin(2008, 12, 31, 0, 0, 0),   inBerlin(2008, 1, 1, 12, 0, 0),
        inBerlin(2008, 2, 29, 23, 59, 59), inBerlin(1999, 11, 9, 12, 5, 0),
        inBerlin(1950, 1, 2, 1, 1, 1),     inBerlin(2049, 12, 31, 13, 13, 13),
        inBerlin(2008, 5, 1, 0, 30, 0),    inBerlin(2008, 7, 14, 11, 59, 59)};
    return list;
}

/// What a style does not show is the default date's.
struct Shown
{
    bool hasDate;
    bool hasTime;
    bool hasSeconds;
};

QDateTime expectedFor(const QDateTime &date, const QDateTime &defaultDate, const Shown &shown)
{
    const QDateTime local = date.toTimeZone(berlin());
    const QDateTime standard = defaultDate.toTimeZone(berlin());
    QTime time = shown.hasTime ? local.time() : standard.time();
    if (shown.hasTime && !shown.hasSeconds)
        time = QTime(time.hour(), time.minute(), standard.time().second());
    return QDateTime(shown.hasDate ? local.date() : standard.date(), time, berlin());
}

class NSDateFormatterRoundTripTests : public testing::TestWithParam<const char *>
{
};
} // namespace

TEST_P(NSDateFormatterRoundTripTests, ReadsWhatItShows)
{
    // Without zones: their names are not always the same in both directions.
    const QDateTime defaultDate = inBerlin(2008, 2, 20, 12, 0, 0);
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(QString::fromLatin1(GetParam())));
    formatter.setTimeZone(berlin());
    formatter.setDefaultDate(defaultDate);
    for (unsigned dateStyle = 0; dateStyle <= 4; ++dateStyle) {
        for (unsigned timeStyle = dateStyle == 0 ? 1 : 0; timeStyle <= 2; ++timeStyle) {
            formatter.setDateStyle(dateStyle);
            formatter.setTimeStyle(timeStyle);
            const Shown shown{dateStyle > 0, timeStyle > 0, timeStyle > 1};
            for (const QDateTime &date : dates()) {
                const QString text = formatter.stringFromDate(date);
                EXPECT_EQ(formatter.dateFromString(text), expectedFor(date, defaultDate, shown))
                    << qPrintable(formatter.dateFormat() + u" <" + text + u'>');
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Locales, NSDateFormatterRoundTripTests,
                         testing::Values("ar_EG", "bg_BG", "ca_ES", "cs_CZ", "da_DK", "de_CH",
                                         "de_DE", "el_GR", "en_AU", "en_CA", "en_GB", "en_US",
                                         "en_US_POSIX", "es_ES", "es_MX", "et_EE", "eu_ES", "fi_FI",
                                         "fr_CA", "fr_FR", "he_IL", "hi_IN", "hr_HR", "hu_HU",
                                         "id_ID", "is_IS", "it_IT", "ja_JP", "ko_KR", "lt_LT",
                                         "lv_LV", "nb_NO", "nl_NL", "pl_PL", "pt_BR", "pt_PT",
                                         "ro_RO", "ru_RU", "sk_SK", "sl_SI", "sr_RS", "sv_SE",
                                         "tr_TR", "uk_UA", "vi_VN", "zh_CN", "zh_TW"),
                         [](const auto &locale) { return std::string(locale.param); });

TEST(NSDateFormatterRoundTrip, TellMorningsFromAfternoons)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(u"zh_TW"_s));
    formatter.setTimeZone(berlin());
    formatter.setDateFormat(u"y/M/d Bh:mm"_s);
    for (const int defaultHour : {0, 6, 12, 23}) {
        formatter.setDefaultDate(inBerlin(2008, 2, 20, defaultHour, 0, 0));
        for (int hour = 0; hour < 24; ++hour) {
            const QDateTime date = inBerlin(2008, 3, 5, hour, 10, 0);
            const QString text = formatter.stringFromDate(date);
            EXPECT_EQ(formatter.dateFromString(text), date) << qPrintable(text);
        }
    }
}

TEST(NSDateFormatterRoundTrip, KeepInstantsThroughPatternsWithZones)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setTimeZone(QTimeZone("America/New_York"));
    for (const char16_t *const pattern :
         {u"yyyy-MM-dd'T'HH:mm:ssXXX", u"yyyy-MM-dd HH:mm:ss Z", u"M/d/yyyy h:mm:ss a z",
          u"EEEE, MMMM d, y h:mm:ss a zzzz", u"yyyyMMdd HHmmss xx"}) {
        formatter.setDateFormat(QString::fromUtf16(pattern));
        for (const QDateTime &date : dates()) {
            const QString text = formatter.stringFromDate(date);
            EXPECT_EQ(formatter.dateFromString(text), date) << qPrintable(text);
        }
    }
}

TEST(NSDateFormatterRoundTrip, KeepDatesInOtherCalendars)
{
    for (const char *const identifier :
         {"ja_JP@calendar=japanese", "th_TH@calendar=buddhist", "fa_IR@calendar=persian",
          "he_IL@calendar=hebrew", "ar_SA@calendar=islamic-umalqura", "en_US@calendar=coptic"}) {
        NSDateFormatter formatter;
        formatter.setLocale(NSLocale(QString::fromLatin1(identifier)));
        formatter.setTimeZone(berlin());
        formatter.setDateFormat(u"G y-M-d HH:mm:ss"_s);
        for (const QDateTime &date : dates()) {
            const QString text = formatter.stringFromDate(date);
            EXPECT_EQ(formatter.dateFromString(text), date)
                << identifier << ' ' << qPrintable(text);
        }
    }
}

TEST(NSDateFormatterRoundTrip, KeepDatesThroughOldPatterns)
{
    for (const char *const identifier : {"en_US", "de_DE", "fr_FR", "ja_JP", "ru_RU"}) {
        for (const char16_t *const pattern :
             {u"%m/%d/%Y %I:%M:%S %p", u"%A, %B %e, %Y %H:%M:%S", u"%Y-%m-%d %H:%M:%S %z",
              u"%a %b %d %Y %H:%M:%S.%F", u"%Y %j %H:%M:%S"}) {
            NSDateFormatter formatter(QString::fromUtf16(pattern), false);
            formatter.setLocale(NSLocale(QString::fromLatin1(identifier)));
            formatter.setTimeZone(berlin());
            for (const QDateTime &date : dates()) {
                const QString text = formatter.stringFromDate(date);
                EXPECT_EQ(formatter.dateFromString(text), date)
                    << identifier << ' ' << qPrintable(text);
            }
        }
    }
}
