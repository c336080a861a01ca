#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>
#include <KTUtility/Platform/Dates/DateText_p.h>

#include "support/TestSupport.h"

#include <QTimeZone>

#include <memory>
#include <tuple>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
using Formatters = std::vector<std::unique_ptr<NSDateFormatter>>;

std::unique_ptr<NSDateFormatter> formatterOf(const QString &locale, const QString &pattern)
{
    auto formatter = std::make_unique<NSDateFormatter>();
    formatter->setFormatterBehavior(NSDateFormatterBehavior10_4);
    formatter->setLocale(NSLocale(locale));
    formatter->setTimeZone(QTimeZone("Europe/Berlin"));
    formatter->setDateFormat(pattern);
    return formatter;
}

/// Patterns that begin alike, of two languages in turn.
Formatters formattersThatBeginAlike()
{
    const QString patterns[] = {u"M/d/yy h:m a"_s,  u"M/d/yy k:m"_s,      u"M/d h a"_s,
                                u"M/d k:m:s"_s,     u"MMM d, yy h:m"_s,   u"MMM d, yy k:m:s"_s,
                                u"MMM d"_s,         u"LLLL d"_s,          u"M-d"_s,
                                u"d. MMM yy H:m"_s, u"d. MMM yy H:m:s"_s, u"EEE, MMM d"_s};
    Formatters formatters;
    for (const QString &pattern : patterns) {
        for (const QString &locale : {u"en_US"_s, u"de_DE"_s})
            formatters.push_back(formatterOf(locale, pattern));
    }
    return formatters;
}

/// What an attempt to read a text gave.
std::tuple<bool, qsizetype, qint64> attempt(const NSDateFormatter &formatter, const DateText &text)
{
    DateMatch match;
    const bool isRead = DateFormatterAccess::parse(formatter, text, &match);
    return {isRead, match.length, isRead ? match.time : 0};
}
} // namespace

TEST(DateText, WhatAttemptsRememberChangesNoOther)
{
    const Formatters formatters = formattersThatBeginAlike();
    const QString texts[] = {u"3/4/08 5:30 PM"_s, u"3/4 5:30:10"_s,     u"Mai 5, 08 5:30"_s,
                             u"may be"_s,         u"May 5, 08 17:30"_s, u"Sept 5"_s,
                             u"Sep 5, 08 5:3"_s,  u"5. Mai 08 5:3:1"_s, u"März 5"_s,
                             u"Mon, Mar 5"_s,     u"3/4/08x 5:30"_s,    u" 3/4/08  5:30"_s,
                             u"3/32/08 5:30"_s,   u"٣/4/08 5:30"_s,     u"Mar"_s};
    for (const QString &typed : texts) {
        const DateText shared(typed);
        for (int round = 0; round < 2; ++round) {
            for (const auto &formatter : formatters)
                EXPECT_EQ(attempt(*formatter, shared), attempt(*formatter, DateText(typed)))
                    << qPrintable(typed) << ' ' << qPrintable(formatter->dateFormat());
        }
    }
}

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
