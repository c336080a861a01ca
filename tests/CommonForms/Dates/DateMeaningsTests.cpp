// What the parts of dates mean, in words.

#include "CommonDatesSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// All parts of a text, as "role: meaning".
QString partsOf(const QString &text, const char *locale)
{
    const InZone zone("UTC");
    const CommonDate date = readCommonDate(text, commonDateField(QString::fromLatin1(locale)));
    QStringList parts;
    for (const KTReadingPart &part : date.reading.parts)
        parts.append(part.role + u": "_s + part.meaning);
    return parts.join(u", "_s);
}
} // namespace

TEST(DateMeanings, AreEnglishWordsForWords)
{
    EXPECT_EQ(partsOf(u"mercredi 5 mars 2008"_s, "fr_FR"),
              u"weekday: Wednesday, day: 5, month: March, year: 2008");
    EXPECT_EQ(partsOf(u"vor 5 Minuten"_s, "de_DE"), u"amount: 5, unit: minute");
    EXPECT_EQ(partsOf(u"через 2 часа"_s, "ru_RU"), u"amount: 2, unit: hour");
    EXPECT_EQ(partsOf(u"morgen um 8 Uhr"_s, "de_DE"), u"relative: 1 day, hour: 8");
    EXPECT_EQ(partsOf(u"vorgestern"_s, "de_DE"), u"relative: -2 days");
    EXPECT_EQ(partsOf(u"next week"_s, "en_US"), u"relative: 1 week");
    EXPECT_EQ(partsOf(u"now"_s, "en_US"), u"relative: now");
    EXPECT_EQ(partsOf(u"next Monday"_s, "en_US"), u"weekday: Monday");
    EXPECT_EQ(partsOf(u"8 Uhr abends"_s, "de_DE"), u"hour: 20, dayPeriod: PM");
    EXPECT_EQ(partsOf(u"midnight"_s, "en_US"), u"dayPeriod: midnight");
    EXPECT_EQ(partsOf(u"midi"_s, "fr_FR"), u"dayPeriod: noon");
}

TEST(DateMeanings, AreNumbersForNumbers)
{
    EXPECT_EQ(partsOf(u"2008年3月5日"_s, "ja_JP"), u"year: 2008, month: 3, day: 5");
    EXPECT_EQ(partsOf(u"3/13/08"_s, "en_US"), u"month: 3, day: 13, year: 8");
}

TEST(DateMeanings, AreOfTheCalendar)
{
    EXPECT_EQ(partsOf(u"令和元年5月2日"_s, "ja_JP").section(u", "_s, 0, 0), u"era: Reiwa");
    EXPECT_EQ(partsOf(u"۱۵ اسفند ۱۳۸۶"_s, "fa_IR"), u"day: 15, month: Esfand, year: 1386");
}

TEST(DateMeanings, NameTheZone)
{
    EXPECT_EQ(partsOf(u"14:30 Europe/Berlin"_s, "de_DE"),
              u"hour: 14, minute: 30, zone: Europe/Berlin");
}
