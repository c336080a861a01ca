// Texts that are a duration and nothing else.

#include <KTUtility/CommonForms/Numbers/DurationGrammar_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char *locale;
    const char16_t *text;
    const char *seconds;
    const char *form;
};

constexpr char Units[] = "common.units";
constexpr char Clock[] = "common.clock";

constexpr Row Rows[] = {
    // Units of all widths, joined in any way.
    {"en_US", u"90 min", "5400", Units},
    {"en_US", u"3d2h32m", "268320", Units},
    {"en_US", u"1 day, 2 hours and 3 mins.", "93780", Units},
    {"en_US", u"1h;2m", "3720", Units},
    {"en_US", u"1h & 2m", "3720", Units},
    {"en_US", u"30-minute", "1800", Units},
    {"en_US", u"1wks", "604800", Units},
    {"en_US", u"0 secs", "0", Units},
    {"en_US", u"100 ms", "0.1", Units},
    {"en_US", u"27,681 ns", "0.000027681", Units},
    // Fractions.
    {"en_US", u"1.5 hrs", "5400", Units},
    {"en_US", u".5hr", "1800", Units},
    {"en_US", u"1 1/2 h", "5400", Units},
    {"en_US", u"1\u00BDh", "5400", Units},
    {"en_US", u"3.14 seconds", "3.14", Units},
    {"en_US", u"+0. secs", "0", Units},
    {"de_DE", u"123,45 sek", "123.45", Units},
    // Signs.
    {"en_US", u"-2h", "-7200", Units},
    {"en_US", u"- 1w 3d 2h 32m", "-873120", Units},
    {"en_US", u"+5 days", "432000", Units},
    // Words for counts.
    {"en_US", u"an hour and a half", "5400", Units},
    {"en_US", u"half an hour", "1800", Units},
    {"en_US", u"an hour", "3600", Units},
    {"en_US", u"2 and a half hours", "9000", Units},
    {"en_US", u"three quarters of an hour", "2700", Units},
    {"de_DE", u"eine halbe Stunde", "1800", Units},
    {"de_DE", u"anderthalb Stunden", "5400", Units},
    {"fr_FR", u"une heure et demie", "5400", Units},
    {"fr_FR", u"une demi-heure", "1800", Units},
    {"es_ES", u"media hora", "1800", Units},
    {"ja_JP", u"2\u6642\u9593\u534A", "9000", Units},
    {"he_IL", u"\u05E9\u05E2\u05EA\u05D9\u05D9\u05DD", "7200", Units},
    // The unit of the end.
    {"en_US", u"2m30", "150", Units},
    {"en_US", u"1h30", "5400", Units},
    {"fr_FR", u"2 h 30", "9000", Units},
    // The full stop behind a unit's word is the word's.
    {"en_US", u"1h.30m", "5400", Units},
    {"en_US", u"1h.5m", "3900", Units},
    {"de_DE", u"1 Std.30 Min.", "5400", Units},
    // Fractions without end.
    {"en_US", u"1 1/3 h", "4800", Units},
    {"en_US", u"1/3 h", "1200", Units},
    {"en_US", u"2/7 weeks", "172800", Units},
    // Languages.
    {"fr_FR", u"3 hrs", "10800", Units},
    {"fr_FR", u"3jour", "259200", Units},
    {"el_GR", u"1,5 \u03CE\u03C1\u03B1", "5400", Units},
    {"ko_KR", u"2\uC2DC\uAC04 30\uBD84", "9000", Units},
    {"zh_CN", u"8\u592920\u5C0F\u65F6", "763200", Units},
    {"sv_SE", u"30 minuterna", "1800", Units},
    {"tr_TR", u"30 g\u00FCn", "2592000", Units},
    // Clocks.
    {"en_US", u"1:30", "5400", Clock},
    {"en_US", u"100:00", "360000", Clock},
    {"en_US", u"-0:30", "-1800", Clock},
    {"en_US", u"4:13:02", "15182", Clock},
    {"en_US", u"4:13:02.266", "15182.266", Clock},
    {"en_US", u"2:04.5", "124.5", Clock},
    {"en_US", u"2:04,5", "124.5", Clock},
    {"en_US", u"2:04:13:02.266", "187982.266", Clock},
    {"en_US", u"2 days,  4:13:02", "187982", Clock},
    {"en_US", u"1:30 h", "5400", Clock},
    {"en_US", u"4:30 min", "270", Clock},
    // The field's own words come first.
    {"en_US", u"2 ticks", "2", Units},
};

constexpr const char16_t *Unread[] = {
    u"",         u"90",      u"h",           u"-",         u"2h-",           u"1h -30m",
    u"~2h",      u"2h!",     u"1:75",        u"1:3",       u":30",           u"1:30:",
    u"1:30.5.2", u"25:00 s", u"1 day 25:00", u"1:30 30m",  u"1h 5",          u"1h 300",
    u"1h30.5",   u"5 h x",   u"x 5 h",       u"5 bananas", u"and",           u"5 h and",
    u"half",     u"a",       u"2s30",        u"1d30",      u"1:30:00:00:00", u"1, 5 h",
    u"h 5",      u"5 5 h",   u"1 weekend",   u"5 minus",   u"5 secondary",   u"5 hourly",
    u"5 mil",    u"5 mic",   u"1 h 1/2",
};

constexpr const char16_t *Refused[] = {
    u"5 months", u"1 year", u"1 year 2 days", u"1,5 h", u"1.5.2 h", u"3/0 h", u"30m 1h", u"1h 1h",
};

PhraseTable<DurationWord> programWords()
{
    PhraseTable<DurationWord> words;
    words.add(u"ticks", {DurationUnit::Second});
    return words;
}

TypedDecimal read(const char *locale, const char16_t *text)
{
    static const PhraseTable<DurationWord> program = programWords();
    const NSLocale where(QString::fromLatin1(locale));
    const auto words = DurationWords::of(where);
    const auto signs = NumberSigns::of(where);
    return DurationGrammar::read(FoldedText(QStringView(text)), {program, *words, *signs});
}
} // namespace

TEST(DurationGrammar, ReadsWhatPeopleType)
{
    for (const Row &row : Rows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const TypedDecimal typed = read(row.locale, row.text);
        ASSERT_TRUE(typed.isRead()) << name << ' ' << typed.reason.toStdString();
        EXPECT_EQ(typed.value.description().toStdString(), row.seconds) << name;
        EXPECT_EQ(typed.reading.form.toStdString(), row.form) << name;
    }
}

TEST(DurationGrammar, LeavesWhatIsNoDuration)
{
    for (const char16_t *text : Unread)
        EXPECT_FALSE(read("en_US", text).isRead()) << QString::fromUtf16(text).toStdString();
}

TEST(DurationGrammar, RefusesWithAReason)
{
    for (const char16_t *text : Refused) {
        const TypedDecimal typed = read("en_US", text);
        EXPECT_TRUE(typed.isRefused()) << QString::fromUtf16(text).toStdString();
        EXPECT_FALSE(typed.reason.isEmpty());
    }
}

TEST(DurationGrammar, TellsItsPartsAndTheOtherReading)
{
    const TypedDecimal typed = read("en_US", u"-1 h 30 min");
    EXPECT_EQ(typed.reading.parts, (QList<KTReadingPart>{{{0, 1}, u"minusSign"_s, u"-"_s},
                                                         {{1, 3}, u"hour"_s, u"1"_s},
                                                         {{5, 6}, u"minute"_s, u"30"_s}}));
    EXPECT_FALSE(typed.reading.isAmbiguous());
    const TypedDecimal clock = read("en_US", u"1:30");
    EXPECT_EQ(clock.reading.alternative.value<NSDecimalNumber>(), NSDecimalNumber(90));
    EXPECT_EQ(clock.reading.parts,
              (QList<KTReadingPart>{{{0, 1}, u"hour"_s, u"1"_s}, {{2, 2}, u"minute"_s, u"30"_s}}));
    EXPECT_FALSE(read("en_US", u"1:30:00").reading.isAmbiguous());
    EXPECT_FALSE(read("en_US", u"1:30 h").reading.isAmbiguous());
}
