// Taking apart what was shown.

#include <KTUtility/CommonForms/Standards/ShownDatePattern_p.h>
#include <KTUtility/NSLocale>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// "2008-3-5 14:30:5 half 1" of each way in which a text can be taken apart, "?" for what it does
/// not say.
QStringList waysOf(const char *locale, const QString &pattern, const QString &text)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(QString::fromLatin1(locale)));
    formatter.setDateFormat(pattern);
    const auto number = [](std::optional<int> field) {
        return field ? QString::number(*field) : u"?"_s;
    };
    QStringList ways;
    ShownDatePattern::patternOf(formatter)->takeApart(text, [&](const ShownFields &fields) {
        ways.append(number(fields.year) + u'-' + number(fields.month) + u'-' + number(fields.day) +
                    u' ' + number(fields.hour) + u':' + QString::number(fields.minute) + u':' +
                    QString::number(fields.second) + u" half " + number(fields.half));
        return false;
    });
    return ways;
}
} // namespace

TEST(ShownDatePattern, TakesNumbersAndNames)
{
    EXPECT_EQ(waysOf("en_US", u"M/d/yyyy"_s, u"3/5/2008"_s),
              QStringList{u"2008-3-5 ?:0:0 half ?"_s});
    EXPECT_EQ(waysOf("en_US", u"MMMM d, yyyy h:mm:ss a"_s, u"March 5, 2008 2:30:05 PM"_s),
              QStringList{u"2008-3-5 2:30:5 half 1"_s});
    EXPECT_EQ(waysOf("de_DE", u"d. MMM yyyy"_s, u"5. März 2008"_s),
              QStringList{u"2008-3-5 ?:0:0 half ?"_s});
}

TEST(ShownDatePattern, TakesDigitsOfAllScripts)
{
    EXPECT_EQ(waysOf("ar_EG", u"d/M/yyyy"_s, u"٥/٣/٢٠٠٨"_s),
              QStringList{u"2008-3-5 ?:0:0 half ?"_s});
    const QString chakma = QString::fromUcs4(U"\U0001113B/3");
    EXPECT_EQ(waysOf("en_US", u"d/M"_s, chakma), QStringList{u"?-3-5 ?:0:0 half ?"_s});
}

TEST(ShownDatePattern, TakesWhateverStandsForAZoneOrWeekday)
{
    EXPECT_EQ(waysOf("en_US", u"EEEE, MMMM d"_s, u"Anyday, March 5"_s),
              QStringList{u"?-3-5 ?:0:0 half ?"_s});
    EXPECT_EQ(waysOf("en_US", u"H:mm zzzz"_s, u"14:30 Some Time"_s),
              QStringList{u"?-?-? 14:30:0 half ?"_s});
    EXPECT_EQ(waysOf("en_US", u"zzzz H:mm"_s, u"GMT 0 14:30"_s),
              QStringList{u"?-?-? 14:30:0 half ?"_s});
}

TEST(ShownDatePattern, TakesWholeTextsOnly)
{
    for (const QString &text : {u""_s, u"3/5"_s, u"3/5/2008 "_s, u" 3/5/2008"_s, u"3-5-2008"_s,
                                u"3/5/x"_s, u"1234567890/1/1"_s})
        EXPECT_EQ(waysOf("en_US", u"M/d/yyyy"_s, text), QStringList()) << qPrintable(text);
}

TEST(ShownDatePattern, KnowsWhatItShows)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setDateFormat(u"MMMM d h:mm z"_s);
    const auto both = ShownDatePattern::patternOf(formatter);
    EXPECT_TRUE(both->hasDay() && both->hasTime() && both->hasHalves() && both->hasZone());
    formatter.setDateFormat(u"H:mm"_s);
    const auto time = ShownDatePattern::patternOf(formatter);
    EXPECT_FALSE(time->hasDay() || time->hasHalves() || time->hasZone());
    EXPECT_TRUE(time->hasTime());
}

TEST(ShownDatePattern, IsMadeOnceForALocale)
{
    NSDateFormatter one;
    NSDateFormatter other;
    for (NSDateFormatter *const formatter : {&one, &other}) {
        formatter->setLocale(NSLocale(u"fr_FR"_s));
        formatter->setDateFormat(u"d MMMM"_s);
    }
    EXPECT_EQ(ShownDatePattern::patternOf(one), ShownDatePattern::patternOf(other));
    other.setLocale(NSLocale(u"de_DE"_s));
    EXPECT_NE(ShownDatePattern::patternOf(one), ShownDatePattern::patternOf(other));
}
