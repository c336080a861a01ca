// Durations beside whole-number arithmetic written out.

#include <KTUtility/KTDurationFormatter>

#include "support/Properties.h"
#include "support/TestSupport.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
struct Unit
{
    qint64 seconds;
    const char16_t *abbreviation;
    const char16_t *singular;
    const char16_t *plural;
};
constexpr std::array<Unit, 5> Units = {{{604800, u"w", u"week", u"weeks"},
                                        {86400, u"d", u"day", u"days"},
                                        {3600, u"h", u"hour", u"hours"},
                                        {60, u"m", u"minute", u"minutes"},
                                        {1, u"s", u"second", u"seconds"}}};
constexpr qint64 Most = 1'000'000'000;

QString wordOf(const Unit &unit, qint64 count, bool abbreviates)
{
    return abbreviates ? QString::fromUtf16(unit.abbreviation)
                       : u' ' + QString::fromUtf16(count == 1 ? unit.singular : unit.plural);
}

/// The units of a duration, from the largest down; no unit that it has none of.
QStringList partsOf(qint64 seconds, bool abbreviates)
{
    QStringList parts;
    for (const Unit &unit : Units) {
        const qint64 count = seconds / unit.seconds;
        seconds %= unit.seconds;
        if (count > 0)
            parts += QString::number(count) + wordOf(unit, count, abbreviates);
    }
    return parts;
}

void expectDuration(KTDurationFormatter &formatter, qint64 seconds)
{
    for (const bool abbreviates : {true, false}) {
        formatter.setUseAbbreviations(abbreviates);
        const QString text = formatter.stringForObjectValue(seconds);
        EXPECT_EQ(text, partsOf(seconds, abbreviates).join(u' ')) << seconds;
        QVariant value = seconds;
        ASSERT_TRUE(formatter.getObjectValue(&value, text)) << seconds;
        EXPECT_EQ(NSDecimalNumber::decimalNumberWithNumber(value), NSDecimalNumber(seconds));
    }
}

void requireValue(const KTDurationFormatter &formatter, const QString &text, qint64 seconds)
{
    QVariant value;
    if (!formatter.getObjectValue(&value, text))
        RC_FAIL(qPrintable(u"\"%1\" is not read"_s.arg(text)));
    RC_ASSERT((value.value<NSDecimalNumber>() == NSDecimalNumber(seconds)));
}

/// One part in random words and letter case, and how long it is.
QString somePart(qint64 *seconds)
{
    const Unit &unit = Units.at(size_t(someNumber(0, 4)));
    const qint64 count = someNumber(1, 3000);
    *seconds += count * unit.seconds;
    const char16_t *const words[] = {unit.abbreviation, unit.singular, unit.plural};
    const QString word = QString::fromUtf16(words[someNumber(0, 2)]);
    const QString number = QString::number(count).rightJustified(someNumber(1, 6), u'0');
    return number + (someBool() ? u" "_s : QString()) + (someBool() ? word : word.toUpper());
}
} // namespace

TEST(KTDurationFormatterModel, EveryBoundaryOfAUnitUpToABillionSeconds)
{
    KTDurationFormatter formatter;
    for (qint64 seconds = 0; seconds <= 200; ++seconds)
        expectDuration(formatter, seconds);
    for (const Unit &unit : Units) {
        for (qint64 factor = 1; factor * unit.seconds <= Most; factor *= 3) {
            for (const qint64 offset : {-1, 0, 1})
                expectDuration(formatter, factor * unit.seconds + offset);
        }
    }
    for (const qint64 seconds : {Most - 1, Most, qint64(1) << 31, (qint64(1) << 31) - 1})
        expectDuration(formatter, seconds);
}

TEST(KTDurationFormatterModel, WhatIsShownIsWhatArithmeticSays)
{
    checkProperty("display and reading of 0 to 1,000,000,000 seconds", 4000, [] {
        KTDurationFormatter formatter;
        const bool abbreviates = someBool();
        formatter.setUseAbbreviations(abbreviates);
        const auto seconds = *rc::gen::inRange<qint64>(1, Most + 1);
        const QString text = partsOf(seconds, abbreviates).join(u' ');
        requireSame(formatter.stringForObjectValue(seconds), text);
        requireSame(formatter.stringForObjectValue(double(seconds) + 0.75), text);
        requireValue(formatter, text, seconds);
    });
}

TEST(KTDurationFormatterModel, NothingAndLessAreShownAsNothing)
{
    checkProperty("display of zero and below", 500, [] {
        const KTDurationFormatter formatter;
        requireSame(formatter.stringForObjectValue(-*rc::gen::inRange<qint64>(0, Most)), u""_s);
        requireSame(formatter.stringForObjectValue(someNumber(-1000, 999) / 1000.0), u""_s);
    });
}

TEST(KTDurationFormatterModel, UnitsAreReadInAnyOrderAndRepeated)
{
    checkProperty("reading of units in any order, words and punctuation", 2000, [] {
        static const QStringList separators = {u" "_s, u", "_s, u" - "_s, u"\t;"_s, u""_s};
        const KTDurationFormatter formatter;
        QString text;
        qint64 seconds = 0;
        for (int count = someNumber(1, 6); count > 0; --count)
            text += somePart(&seconds) + someOf(separators);
        requireValue(formatter, text, seconds);
    });
}

TEST(KTDurationFormatterModel, ANumberWithoutAUnitSpoilsTheText)
{
    checkProperty("refused durations", 1000, [] {
        const KTDurationFormatter formatter;
        static const QStringList spoilers = {u"90"_s,      u"0h"_s, u"1.5h"_s,
                                             u"3 moons"_s, u"h"_s,  u"2 2h"_s};
        qint64 seconds = 0;
        QStringList parts = {someOf(spoilers)};
        for (int count = someNumber(0, 3); count > 0; --count)
            parts.prepend(somePart(&seconds));
        QVariant value = 7;
        QString error;
        RC_ASSERT(!formatter.getObjectValue(&value, parts.join(u' '), &error));
        RC_ASSERT((value == QVariant(7)));
        requireSame(error, u"Could not convert to a time"_s);
    });
}
