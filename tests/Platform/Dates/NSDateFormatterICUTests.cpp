// What is read and written without ICU must be what ICU would have read and written. These tests
// compare the two on random texts and patterns, a test for each locale.

#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QStringList>

#include <array>
#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int Pairs = 20'000;
#else
constexpr int Pairs = 200'000;
#endif
constexpr int PatternsPerText = 25;

struct Setting
{
    const char *locale;
    const char *zone;
};

class NSDateFormatterICUTests : public testing::TestWithParam<Setting>
{
protected:
    int below(int limit) { return int(_random() % unsigned(limit)); }

    template<typename List>
    const auto &oneOf(const List &list)
    {
        return list[typename List::size_type(below(int(list.size())))];
    }

    QStringList patterns() const
    {
        QStringList result;
        const QStringList dates{
            u"M-d-yy"_s,       u"M/d/yy"_s,          u"M.d.yyyy"_s, u"M/d"_s,      u"MMM d, yy"_s,
            u"MMMM d, yyyy"_s, u"MMM d"_s,           u"yy.M.d"_s,   u"yyyy-M-d"_s, u"yyyy/M/d"_s,
            u"d.M"_s,          u"d/M/yy"_s,          u"d.M.yyyy"_s, u"d MMM yy"_s, u"d MMMM yyyy"_s,
            u"yy/d/M"_s,       u"EEEE, MMMM d, y"_s, u"M月d日"_s,   u"d LLL y"_s,  u"EEE d MMM"_s};
        const QStringList times{u"h:m:s a"_s, u"h:ma"_s,       u"k:m:s"_s,    u"k:m"_s,
                                u"h a"_s,     u"ha"_s,         u"HH:mm:ss"_s, u"K:mm a"_s,
                                u"h:m"_s,     u"h:mm:ss a z"_s};
        result = dates + times;
        for (const QString &date : dates)
            result += date + u' ' + times[result.size() % times.size()];
        result += {u"yyyy-MM-dd'T'HH:mm:ss"_s,
                   u"yyyyMMdd"_s,
                   u"'on' d 'of' MMMM"_s,
                   u"G y-M-d"_s,
                   u"d''M"_s,
                   u"  M  / d"_s,
                   u"a h"_s,
                   u"H'h'mm"_s,
                   u"dd.MM.yy"_s,
                   u"'x'MMM"_s,
                   u"EEE"_s,
                   u"y"_s,
                   u"yyy"_s,
                   u"M/d/yy 'E'"_s,
                   u"d.MMM."_s,
                   u"H k h"_s,
                   u"h H"_s,
                   u"dMMM"_s,
                   u"aMd"_s,
                   u"d M, 'q"_s,
                   u"LLLL EEEEE"_s,
                   u"SSS"_s};
        return result + stylePatterns();
    }

    QStringList stylePatterns() const
    {
        QStringList result;
        NSDateFormatter formatter;
        formatter.setLocale(locale());
        for (unsigned style = 1; style <= 4; ++style) {
            formatter.setDateStyle(style);
            formatter.setTimeStyle(0);
            result += formatter.dateFormat();
            formatter.setTimeStyle(style);
            result += formatter.dateFormat();
            formatter.setDateStyle(0);
            result += formatter.dateFormat();
        }
        return result;
    }

    static NSLocale locale() { return NSLocale(QString::fromLatin1(GetParam().locale)); }

    /// A formatter for each pattern, with and without a default date.
    std::vector<std::unique_ptr<NSDateFormatter>> formatters()
    {
        std::vector<std::unique_ptr<NSDateFormatter>> result;
        for (const QString &pattern : patterns()) {
            result.push_back(std::make_unique<NSDateFormatter>());
            result.back()->setLocale(locale());
            result.back()->setTimeZone(QTimeZone(GetParam().zone));
            result.back()->setDateFormat(pattern);
            if (below(4) > 0)
                result.back()->setDefaultDate(randomDate());
        }
        return result;
    }

    /// Mostly of our days, at times of the years from 1400 to 9999, often near a change of clocks.
    QDateTime randomDate()
    {
        const bool isOfToday = below(4) > 0;
        const qint64 seconds =
            isOfToday
                ? std::uniform_int_distribution<qint64>(-1'000'000'000, 2'500'000'000)(_random)
                : std::uniform_int_distribution<qint64>(-17'000'000'000, 253'370'000'000)(_random);
        return QDateTime::fromMSecsSinceEpoch(seconds * 1000, UTC);
    }

    /// The pattern of a formatter with any numbers in the places of its fields.
    QString randomNumbers(const NSDateFormatter &formatter)
    {
        const QString pattern = formatter.dateFormat();
        QString text;
        for (qsizetype at = 0; at < pattern.size();) {
            const QChar unit = pattern[at];
            if (!unit.isLetter() || unit.unicode() >= 0x80) {
                text += unit;
                ++at;
                continue;
            }
            text += unit == u'a' ? u"pm"_s : QString::number(randomNumber());
            while (at < pattern.size() && pattern[at] == unit)
                ++at;
        }
        return text;
    }

    int randomNumber()
    {
        constexpr std::array Limits{13, 13, 32, 32, 61, 100, 3000, 10'000};
        return below(oneOf(Limits));
    }

    QString randomPart(const std::vector<std::unique_ptr<NSDateFormatter>> &formatters)
    {
        switch (below(8)) {
        case 0:
            return randomHeap();
        case 1:
        case 2:
            return randomNumbers(*oneOf(formatters));
        default:
            return oneOf(formatters)->stringFromDate(randomDate());
        }
    }

    /// A date in one of the patterns, spoilt now and then; or a heap of pieces.
    QString randomText(const std::vector<std::unique_ptr<NSDateFormatter>> &formatters)
    {
        QString text;
        const int parts = 1 + below(5) / 4;
        for (int part = 0; part < parts; ++part)
            text += randomPart(formatters);
        for (int change = below(3); change > 0 && !text.isEmpty(); --change)
            spoil(&text);
        return text;
    }

    QString randomHeap()
    {
        QString text;
        for (int count = 1 + below(7); count > 0; --count)
            text += oneOf(pieces());
        return text;
    }

    void spoil(QString *text)
    {
        const int at = below(int(text->size()));
        switch (below(5)) {
        case 0:
            text->remove(at, 1 + below(3));
            break;
        case 1:
            text->insert(at, oneOf(pieces()));
            break;
        case 2:
            text->truncate(at);
            break;
        case 3:
            *text = below(2) == 0 ? text->toUpper() : text->toLower();
            break;
        default:
            text->replace(at, 1, oneOf(pieces()));
        }
    }

    static const QStringList &pieces()
    {
        static const QStringList list =
            u"0|1|2|3|5|9|00|04|08|12|13|24|25|29|30|31|59|60|99|1999|2008|0005|123456789012|/"
            "|-|.|,|"
            ":|/| |  "
            "|\t|\u00A0|\u202F|\u3000|\u200E|e|E|E5|+|%|x|T|a|p|am|PM|AM|p.m.|sep|Sept|SEPT.|"
            "May|may be|Mar.|März|août|juil|juil.|S|M|ß|ſ|İ|月|日|年|午後|木|٣|३|１|"
            "𝟗|'|''|\u0301|N|NaN|∞|Wednesday|mercredi|Mi|Mo.|onsdag|\u061C"_s.split(u'|');
        return list;
    }

    std::mt19937 _random{20080305};
};

QString describe(const NSDateFormatter &formatter, const QString &text)
{
    return formatter.dateFormat() + u" <" + text + u'>';
}

struct Counts
{
    int decided = 0;
    int matched = 0;
};

/// Whether only ICU can decide, or both agree.
bool agree(const NSDateFormatter &formatter, const QString &text, Counts *counts)
{
    DateMatch own;
    const std::optional<bool> answer =
        DateFormatterAccess::parseWithoutICU(formatter, DateText(text), &own);
    if (!answer)
        return true;
    ++counts->decided;
    counts->matched += *answer ? 1 : 0;
    DateMatch other;
    if (DateFormatterAccess::parseWithICU(formatter, DateText(text), &other) != *answer)
        return false;
    return !*answer || (own.time == other.time && own.length == other.length);
}
} // namespace

TEST_P(NSDateFormatterICUTests, ReadsTheSame)
{
    const auto all = formatters();
    Counts counts;
    int failures = 0;
    for (int pair = 0; pair < Pairs && failures < 10; pair += PatternsPerText) {
        const QString text = randomText(all);
        for (int count = 0; count < PatternsPerText; ++count) {
            const NSDateFormatter &formatter = *oneOf(all);
            if (agree(formatter, text, &counts))
                continue;
            ++failures;
            ADD_FAILURE() << qPrintable(describe(formatter, text));
        }
    }
    EXPECT_GT(counts.decided, Pairs / 4);
    EXPECT_GT(counts.matched, Pairs / 1000);
}

TEST_P(NSDateFormatterICUTests, WritesTheSame)
{
    int decided = 0;
    for (const auto &formatter : formatters()) {
        for (int count = 0; count < Pairs / 2000; ++count) {
            const QDateTime date = randomDate();
            const QString text = DateFormatterAccess::stringWithoutICU(*formatter, date);
            if (text.isNull())
                continue;
            ++decided;
            ASSERT_EQ(text, DateFormatterAccess::stringWithICU(*formatter, date))
                << qPrintable(formatter->dateFormat() + u' ' + date.toString(Qt::ISODate));
        }
    }
    const bool hasOwnDigits = locale().languageCode() == u"ar";
    EXPECT_EQ(decided > 0, !hasOwnDigits);
}

/// Zones that moved to another group, that have winter time, that skipped a day, that have no names.
TEST_P(NSDateFormatterICUTests, WritesZonesTheSame)
{
    const char *const zones[] = {"America/New_York", "America/Indiana/Knox", "Europe/Dublin",
                                 "Pacific/Apia",     "Africa/Casablanca",    "Antarctica/Troll",
                                 "Europe/Moscow",    "Asia/Kolkata",         "UTC",
                                 "UTC+03:00"};
    for (const char *const zone : zones) {
        for (const QString &letters : {u"z"_s, u"zz"_s, u"zzz"_s, u"zzzz"_s}) {
            NSDateFormatter formatter;
            formatter.setLocale(locale());
            formatter.setTimeZone(QTimeZone(zone));
            formatter.setDateFormat(u"yyyy H:mm "_s + letters);
            for (int count = 0; count < 100; ++count) {
                const QDateTime date = randomDate();
                ASSERT_EQ(formatter.stringFromDate(date),
                          DateFormatterAccess::stringWithICU(formatter, date))
                    << zone << ' ' << qPrintable(letters + date.toString(Qt::ISODate));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    Locales, NSDateFormatterICUTests,
    testing::Values(Setting{"en_US", "America/New_York"}, Setting{"en_GB", "Europe/London"},
                    Setting{"de_DE", "Europe/Berlin"}, Setting{"fr_FR", "Pacific/Apia"},
                    Setting{"ja_JP", "Australia/Lord_Howe"}, Setting{"sv_SE", "Asia/Kathmandu"},
                    Setting{"ar_EG", "America/St_Johns"}, Setting{"zh_CN", "Asia/Shanghai"}),
    [](const auto &setting) { return std::string(setting.param.locale); });
