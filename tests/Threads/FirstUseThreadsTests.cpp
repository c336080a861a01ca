// What is made on first use and then shared: zones, the names and patterns of locales, numbers in
// words. All threads come to each of them at the same moment, and find nothing of it made.

#include <KTUtility/NSCalendar>
#include <KTUtility/NSDateFormatter>
#include <KTUtility/NSLocale>
#include <KTUtility/NSNumberFormatter>

#include <gtest/gtest.h>

#include <QTimeZone>

#include <array>
#include <barrier>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
constexpr int ThreadCount = 4;

/// A locale and zone that nothing else in this program uses.
struct Place
{
    const char *locale;
    const char *zone;
};

constexpr std::array Places{Place{"nb_NO", "Europe/Oslo"},
                            Place{"is_IS", "Atlantic/Reykjavik"},
                            Place{"pt_BR", "America/Sao_Paulo"},
                            Place{"es_CL", "America/Santiago"},
                            Place{"fa_IR", "Asia/Tehran"},
                            Place{"th_TH", "Asia/Bangkok"},
                            Place{"en_AU", "Australia/Lord_Howe"},
                            Place{"ar_MA", "Africa/Casablanca"},
                            Place{"he_IL", "Asia/Jerusalem"},
                            Place{"en_IE", "Europe/Dublin"},
                            Place{"fi_FI", "Europe/Helsinki"},
                            Place{"hi_IN", "Asia/Kolkata"},
                            Place{"ko_KR", "Asia/Seoul"},
                            Place{"sr_RS", "Europe/Belgrade"},
                            Place{"en_NZ", "Pacific/Chatham"},
                            Place{"ja_JP@calendar=japanese", "Asia/Tokyo"},
                            Place{"zh_CN@calendar=chinese", "Asia/Shanghai"},
                            Place{"uk_UA", "Europe/Kyiv"}};

/// Times of all seasons, and from before there were any.
std::vector<QDateTime> dates(const QTimeZone &zone)
{
    std::vector<QDateTime> result;
    for (int month = 1; month <= 12; ++month) {
        for (const int year : {1890, 1950, 2008, 2040})
            result.emplace_back(QDate(year, month, 5), QTime(17, 30, 15), zone);
    }
    return result;
}

/// What dates and numbers are shown and read as in a place.
QStringList answersIn(const Place &place)
{
    const NSLocale locale(QString::fromLatin1(place.locale));
    const QTimeZone zone(place.zone);
    NSDateFormatter full;
    full.setLocale(locale);
    full.setTimeZone(zone);
    full.setDateStyle(NSDateFormatterFullStyle);
    full.setTimeStyle(NSDateFormatterFullStyle);
    NSCalendar calendar = NSCalendar::calendarOfLocale(locale);
    calendar.setTimeZone(zone);
    QStringList answers;
    for (const QDateTime &date : dates(zone)) {
        answers += full.stringFromDate(date);
        answers += full.dateFromString(answers.last()).toString(Qt::ISODate);
        answers += QString::number(calendar.components(NSDateCalendarUnits, date).day);
    }
    NSDateFormatter talk(u"%m/%d/%y"_s, true);
    talk.setLocale(locale);
    answers += talk.dateFromString(u"12/31/2008"_s).toString(Qt::ISODate);
    NSNumberFormatter words;
    words.setLocale(locale);
    words.setLenient(true);
    words.setNumberStyle(NSNumberFormatterSpellOutStyle);
    answers += words.stringFromNumber(42);
    answers += words.numberFromString(answers.last()).toString();
    return answers;
}
} // namespace

TEST(FirstUseThreads, AllAtOnceGetTheAnswersOfOne)
{
    std::array<std::array<QStringList, Places.size()>, ThreadCount> answers;
    std::barrier together(ThreadCount);
    std::vector<std::thread> threads;
    for (auto &own : answers) {
        threads.emplace_back([&own, &together] {
            for (size_t index = 0; index < Places.size(); ++index) {
                together.arrive_and_wait();
                own[index] = answersIn(Places[index]);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    for (size_t index = 0; index < Places.size(); ++index) {
        const QStringList alone = answersIn(Places[index]);
        EXPECT_FALSE(alone.first().isEmpty()) << Places[index].locale;
        for (const auto &own : answers)
            EXPECT_EQ(own[index], alone) << Places[index].locale;
    }
}
