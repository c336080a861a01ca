// Date and time fields that read common forms: what they show, and the standards' forms.

#include <KTUtility/KTTimeFormatter>

#include <KTUtility/Platform/Values/UTC_p.h>

#include "FormatterSupport.h"
#include "support/LibcZone.h"
#include "support/TestSupport.h"

#include <atomic>
#include <thread>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// A field that shows dates and times, and reads common forms.
std::unique_ptr<KTDateTimeFormatter> field(const QString &locale)
{
    auto formatter = formatterIn<KTDateTimeFormatter>(locale);
    formatter->setDisplayTime(true);
    formatter->setReadsCommonForms(true);
    return formatter;
}

/// "2008-03-05T14:30:00 display", or "NO".
QString read(const KTDateTimeFormatter &formatter, const QString &text)
{
    QVariant value;
    if (!formatter.getObjectValue(&value, text))
        return u"NO"_s;
    return wallTime(value.toDateTime()) + u' ' + formatter.reading().form;
}
} // namespace

TEST(StandardForms, AreNotReadUnlessWanted)
{
    const auto formatter = formatterIn<KTDateTimeFormatter>(u"sv_SE"_s);
    formatter->setDisplayTime(true);
    QVariant value;
    ASSERT_TRUE(formatter->getObjectValue(&value, u"2008-03-05 17:30"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"2008-03-05T12:00:00");
    EXPECT_FALSE(formatter->reading().isRead());
    formatter->setReadsCommonForms(true);
    ASSERT_TRUE(formatter->getObjectValue(&value, u"2008-03-05 17:30"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"2008-03-05T17:30:00");
}

TEST(StandardForms, WhatIsShownComesFirst)
{
    EXPECT_EQ(read(*field(u"sv_SE"_s), u"2008-03-05 17:30"_s), u"2008-03-05T17:30:00 display");
    EXPECT_EQ(read(*field(u"lt_LT"_s), u"2008-03-05 17:30"_s), u"2008-03-05T17:30:00 display");
    EXPECT_EQ(read(*field(u"fr_CA"_s), u"2008-03-05 17 h 30"_s), u"2008-03-05T17:30:00 display");
    for (const char *const locale : {"da_DK", "fi_FI", "id_ID"}) {
        const auto time = formatterIn<KTTimeFormatter>(QString::fromLatin1(locale));
        time->setReadsCommonForms(true);
        EXPECT_EQ(read(*time, u"11.27"_s), u"2001-01-01T11:27:00 display") << locale;
    }
}

TEST(StandardForms, AreReadInEveryLocale)
{
    for (const char *const locale :
         {"en_US", "de_DE", "fr_FR", "ja_JP", "ar_EG", "th_TH", "fa_IR"}) {
        const auto formatter = field(QString::fromLatin1(locale));
        EXPECT_EQ(read(*formatter, u"2008-03-05T14:30:00Z"_s),
                  u"2008-03-05T09:30:00 iso8601.datetime")
            << locale;
        EXPECT_EQ(read(*formatter, u"2008-W10-3T08:00"_s), u"2008-03-05T08:00:00 iso8601.week")
            << locale;
        EXPECT_EQ(read(*formatter, u"Wed, 5 Mar 2008 14:30:00 +0100 (CET)"_s),
                  u"2008-03-05T08:30:00 rfc5322")
            << locale;
        EXPECT_EQ(read(*formatter, u"2008-03-05 25:00"_s), u"NO") << locale;
        EXPECT_FALSE(formatter->reading().isRead());
    }
}

TEST(StandardForms, OfTimesAreOnTheReferenceDay)
{
    const auto time = formatterIn<KTTimeFormatter>(u"de_DE"_s);
    time->setReadsCommonForms(true);
    EXPECT_EQ(read(*time, u"T14:30"_s), u"2001-01-01T14:30:00 iso8601.time");
    EXPECT_EQ(read(*time, u"2008-03-05T14:30:00Z"_s), u"2001-01-01T09:30:00 iso8601.datetime");
    EXPECT_EQ(read(*time, u"2008-07-05T14:30:00Z"_s), u"2001-01-01T10:30:00 iso8601.datetime");
}

/// A day is no time: noon would be made up.
TEST(StandardForms, DaysAreNoTimes)
{
    const auto time = formatterIn<KTTimeFormatter>(u"nl_NL"_s);
    QVariant value;
    ASSERT_TRUE(time->getObjectValue(&value, u"20.10"_s));
    EXPECT_EQ(wallTime(value.toDateTime()), u"2001-01-01T12:00:00");
    time->setReadsCommonForms(true);
    for (const QString &text : {u"20-10"_s, u"5-3-2008"_s, u"2008-03-05"_s, u"2008-W10-3"_s}) {
        QString error;
        EXPECT_FALSE(time->getObjectValue(&value, text, &error)) << qPrintable(text);
        EXPECT_FALSE(error.isEmpty());
        EXPECT_FALSE(time->reading().isRead());
    }
    EXPECT_EQ(read(*time, u"5-3-2008 20:10"_s), u"2001-01-01T20:10:00 common.datetime");
}

TEST(StandardForms, SayWhyATextIsRefused)
{
    const auto formatter = field(u"en_US"_s);
    QVariant value = 5;
    QString error;
    EXPECT_FALSE(formatter->getObjectValue(&value, u"2008-02-30T10:00"_s, &error));
    EXPECT_EQ(error, u"The month has no such day.");
    EXPECT_FALSE(value.isValid());
    EXPECT_FALSE(formatter->getObjectValue(nullptr, u"2008-02-30T10:00"_s, nullptr));
    EXPECT_TRUE(formatter->getObjectValue(nullptr, u"2008-02-28T10:00"_s, nullptr));
}

/// Nothing is dropped: what stands behind a date has to mean something.
TEST(StandardForms, NothingIsLeftOver)
{
    const auto formatter = field(u"en_US"_s);
    for (const QString &text : {u"2008-03-05 foo"_s, u"2008-03-05T14:30:00 foo"_s,
                                u"2008-03-05T14:30x"_s, u"3/5/2008 foo"_s})
        EXPECT_EQ(read(*formatter, text), u"NO") << qPrintable(text);
}

/// Offsets are converted into the zone of the machine.
TEST(StandardForms, AreConvertedIntoTheZoneOfTheField)
{
    const testing_support::LibcZone berlin("Europe/Berlin");
    const auto formatter = field(u"de_DE"_s);
    EXPECT_EQ(read(*formatter, u"2008-03-05T14:30:00Z"_s), u"2008-03-05T15:30:00 iso8601.datetime");
    EXPECT_EQ(read(*formatter, u"2008-07-05T14:30:00Z"_s), u"2008-07-05T16:30:00 iso8601.datetime");
    EXPECT_EQ(read(*formatter, u"Wed, 5 Mar 2008 23:30:00 EST"_s), u"2008-03-06T05:30:00 rfc5322");
    EXPECT_EQ(read(*formatter, u"2008-03-05 14:30"_s), u"2008-03-05T14:30:00 iso8601.datetime");
    EXPECT_EQ(formatter->reading().zone, u"Europe/Berlin");
}

/// What fields share is made once, whichever thread is the first.
TEST(StandardForms, AreReadInSeveralThreads)
{
    std::atomic<int> failures = 0;
    std::vector<std::jthread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&failures] {
            for (const char *const locale : {"it_IT", "pl_PL", "ko_KR", "el_GR"}) {
                const auto formatter = field(QString::fromLatin1(locale));
                const QString shown = formatter->stringForObjectValue(
                    QDateTime(QDate(2008, 3, 5), QTime(22, 30), KTPrivate::UTC));
                failures += read(*formatter, shown) != u"2008-03-05T17:30:00 display";
                failures += read(*formatter, u"2008-03-05 14:30 CEST"_s) !=
                            u"2008-03-05T07:30:00 iso8601.datetime";
            }
        });
    }
    threads.clear();
    EXPECT_EQ(failures, 0);
}

TEST(StandardForms, TextsOfThePatternsMeanWhatTheyMeanAlways)
{
    const auto formatter = field(u"en_US"_s);
    const KTDateTimeFormatter plain;
    for (const QString &text : {u"3/4/08"_s, u"3/4/08 5:30 PM"_s, u"march 5, 2008"_s, u"5pm"_s,
                                u"9:05"_s, u"08-5-20"_s}) {
        QVariant value;
        QVariant asBefore;
        ASSERT_TRUE(formatter->getObjectValue(&value, text)) << qPrintable(text);
        ASSERT_TRUE(plain.getObjectValue(&asBefore, text)) << qPrintable(text);
        EXPECT_EQ(value, asBefore) << qPrintable(text);
        EXPECT_TRUE(formatter->reading().isRead()) << qPrintable(text);
        EXPECT_EQ(formatter->reading().zone, u"America/New_York") << qPrintable(text);
    }
}
