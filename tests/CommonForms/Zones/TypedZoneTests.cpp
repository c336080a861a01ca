// Zones behind times: offsets, identifiers, names.

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Zones/TypedZone_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Noon of a day, as clocks of any zone show it.
qint64 noonOf(const QString &day)
{
    return QDateTime(QDate::fromString(day, Qt::ISODate), QTime(12, 0), UTC).toMSecsSinceEpoch();
}

/// "UTC+01:00 3", the identifier at a winter's noon and how many units it takes; "" for none.
QString read(const char *locale, const QString &text, const QString &day = u"2008-01-15"_s)
{
    const FoldedText folded(text);
    const TypedZone zone = zoneAt(folded.text(), 0, NSLocale(QString::fromLatin1(locale)));
    if (zone.length == 0)
        return {};
    if (zone.isAmbiguous)
        return u"ambiguous"_s;
    return zone.identifier(noonOf(day)) + u' ' + QString::number(zone.length);
}

/// Minutes from UTC when clocks show noon of a day.
std::optional<int> minutesAtNoon(const char *locale, const QString &text, const QString &day)
{
    const FoldedText folded(text);
    const TypedZone zone = zoneAt(folded.text(), 0, NSLocale(QString::fromLatin1(locale)));
    const auto offset = zone.offsetWhen(noonOf(day));
    return offset ? std::optional(*offset / 60'000) : std::nullopt;
}
} // namespace

TEST(TypedZone, ReadsOffsets)
{
    const QList<std::pair<QString, QString>> rows{
        {u"Z"_s, u"UTC 1"_s},
        {u"z"_s, u"UTC 1"_s},
        {u"+01"_s, u"UTC+01:00 3"_s},
        {u"+0530"_s, u"UTC+05:30 5"_s},
        {u"+05:45"_s, u"UTC+05:45 6"_s},
        {u"\u221203:30"_s, u"UTC-03:30 6"_s}, // a minus sign
        {u"-00:00"_s, u"UTC 6"_s},
        {u"+14:00"_s, u"UTC+14:00 6"_s},
        {u"-12"_s, u"UTC-12:00 3"_s},
        {u"+15:00"_s, QString()},
        {u"-13"_s, QString()},
        {u"+1"_s, QString()},
        {u"+01:60"_s, QString()},
        {u"+01:0"_s, QString()},
        {u"+010"_s, QString()},
        {u"+01000"_s, QString()},
        {u"zulu"_s, QString()},
        {QString(), QString()},
    };
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(read("en_US", text), expected) << qPrintable(text);
}

TEST(TypedZone, ReadsOffsetsFromUTC)
{
    const QList<std::pair<QString, QString>> rows{
        {u"UTC"_s, u"UTC 3"_s},
        {u"ut"_s, u"UTC 2"_s},
        {u"GMT"_s, u"UTC 3"_s},
        {u"GMT+2"_s, u"UTC+02:00 5"_s},
        {u"gmt-3:30"_s, u"UTC-03:30 8"_s},
        {u"UTC +02:00"_s, u"UTC+02:00 10"_s},
        {u"GMT+5.30"_s, u"UTC+05:30 8"_s},
        {u"GMT+0100 (CET)"_s, u"UTC+01:00 8"_s},
        {u"UTC, 5 March"_s, u"UTC 3"_s},
        {u"utcx"_s, QString()},
    };
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(read("sv_SE", text), expected) << qPrintable(text);
}

TEST(TypedZone, ReadsOffsetsInTheWordsOfTheLocale)
{
    EXPECT_EQ(minutesAtNoon("fr_FR", u"UTC+2"_s, u"2008-01-15"_s), 120);
    EXPECT_EQ(minutesAtNoon("ar_EG", u"غرينتش+٣"_s, u"2008-01-15"_s), 180);
    EXPECT_EQ(minutesAtNoon("fa_IR", u"‎+۳:۳۰ گرینویچ"_s, u"2008-01-15"_s), 210);
    EXPECT_EQ(minutesAtNoon("fa_IR", u"‎+۰۳:۳۰ گرینویچ"_s, u"2008-01-15"_s), 210);
}

TEST(TypedZone, ReadsIdentifiersByTheirRules)
{
    EXPECT_EQ(read("en_US", u"Europe/Berlin"_s), u"Europe/Berlin 13");
    EXPECT_EQ(read("de_DE", u"america/argentina/buenos_aires"_s),
              u"America/Argentina/Buenos_Aires 30");
    EXPECT_EQ(read("en_US", u"America/Port-au-Prince."_s), u"America/Port-au-Prince 22");
    EXPECT_EQ(read("en_US", u"Europe/Nowhere"_s), QString());
    EXPECT_EQ(read("en_US", u"am/pm"_s), QString());
    EXPECT_EQ(minutesAtNoon("en_US", u"Europe/Berlin"_s, u"2008-01-15"_s), 60);
    EXPECT_EQ(minutesAtNoon("en_US", u"Europe/Berlin"_s, u"2008-07-15"_s), 120);
    EXPECT_EQ(minutesAtNoon("en_US", u"Etc/GMT+5"_s, u"2008-07-15"_s), -300);
}

TEST(TypedZone, ReadsNamesOfTheLocale)
{
    EXPECT_EQ(minutesAtNoon("en_US", u"EST"_s, u"2008-07-15"_s), -300);
    EXPECT_EQ(minutesAtNoon("en_US", u"PDT"_s, u"2008-01-15"_s), -420);
    EXPECT_EQ(minutesAtNoon("en_US", u"Eastern Daylight Time"_s, u"2008-07-15"_s), -240);
    EXPECT_EQ(minutesAtNoon("en_US", u"ET"_s, u"2008-07-15"_s), -240);
    EXPECT_EQ(minutesAtNoon("de_DE", u"MEZ"_s, u"2008-01-15"_s), 60);
    EXPECT_EQ(minutesAtNoon("de_DE", u"MESZ"_s, u"2008-07-15"_s), 120);
    EXPECT_EQ(minutesAtNoon("de_DE", u"mitteleuropaische sommerzeit"_s, u"2008-07-15"_s), 120);
    EXPECT_EQ(minutesAtNoon("en_IN", u"IST"_s, u"2008-07-15"_s), 330);
}

TEST(TypedZone, ReadsAbbreviationsThatMeanOneZoneInTheWorld)
{
    for (const char *const locale : {"en_US", "de_DE", "ja_JP", "ar_EG"}) {
        EXPECT_EQ(minutesAtNoon(locale, u"CET"_s, u"2008-01-15"_s), 60) << locale;
        EXPECT_EQ(minutesAtNoon(locale, u"CET"_s, u"2008-07-15"_s), 60) << locale;
        EXPECT_EQ(minutesAtNoon(locale, u"CEST"_s, u"2008-07-15"_s), 120) << locale;
        EXPECT_EQ(minutesAtNoon(locale, u"AEST"_s, u"2008-07-15"_s), 600) << locale;
    }
}

TEST(TypedZone, FindsAmbiguousNamesAndSaysSo)
{
    EXPECT_EQ(read("de_DE", u"CST"_s), u"ambiguous");
    EXPECT_EQ(read("en_US", u"IST"_s), u"ambiguous");
    EXPECT_EQ(read("fr_FR", u"EST"_s), u"ambiguous");
    EXPECT_EQ(read("en_US", u"CST"_s), u"UTC-06:00 3");
}

TEST(TypedZone, FindsNoZoneInOtherWords)
{
    for (const char *const locale : {"en_US", "de_DE", "th_TH"}) {
        for (const QString &word : u"pm Uhr tomorrow e a 5 - + ( / cetera estate"_s.split(u' '))
            EXPECT_EQ(read(locale, word), QString()) << locale << ' ' << qPrintable(word);
    }
}

TEST(TypedZone, IsNoSummerTimeWhereThereIsNone)
{
    TypedZone zone;
    zone.length = 1;
    zone.zone = "Asia/Kolkata";
    zone.season = TypedZone::Season::Summer;
    EXPECT_EQ(zone.instantOf(noonOf(u"2008-07-15"_s)), std::nullopt);
    zone.season = TypedZone::Season::Winter;
    EXPECT_EQ(zone.instantOf(noonOf(u"2008-07-15"_s)), noonOf(u"2008-07-15"_s) - 330 * 60'000);
}

TEST(TypedZone, NamesOfMailMeanWhatTheyMeanThere)
{
    const NSLocale locale(u"de_DE"_s);
    const QList<std::pair<QString, int>> rows{{u"est"_s, -5}, {u"edt"_s, -4}, {u"cst"_s, -6},
                                              {u"cdt"_s, -5}, {u"mst"_s, -7}, {u"mdt"_s, -6},
                                              {u"pst"_s, -8}, {u"pdt"_s, -7}, {u"ut"_s, 0},
                                              {u"gmt"_s, 0},  {u"+0100"_s, 1}};
    for (const auto &[name, hours] : rows)
        EXPECT_EQ(mailZoneAt(name, 0, locale).offset, hours * 3'600'000) << qPrintable(name);
    EXPECT_EQ(mailZoneAt(u"pstx", 0, locale).length, 0);
}
