// ISO 8601's durations.

#include <KTUtility/CommonForms/Numbers/ISODuration_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char16_t *text;
    const char *seconds;
};
} // namespace

TEST(ISODuration, ReadsFixedLengths)
{
    constexpr Row Rows[] = {
        {u"PT1H30M", "5400"}, {u"pt1h30m", "5400"}, {u"P1DT12H", "129600"}, {u"P2W", "1209600"},
        {u"PT0S", "0"},       {u"PT0.5S", "0.5"},   {u"PT0,5S", "0.5"},     {u"PT1.5H", "5400"},
        {u"-PT1H", "-3600"},  {u"+P1D", "86400"},   {u"P1W2D", "777600"},   {u"PT36H", "129600"},
        {u"P1DT1S", "86401"}, {u"PT90M", "5400"},   {u"\u2212PT1M", "-60"},
    };
    for (const Row &row : Rows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const TypedDecimal typed = ISODuration::read(FoldedText(QStringView(row.text)));
        ASSERT_TRUE(typed.isRead()) << name;
        EXPECT_EQ(typed.value.description().toStdString(), row.seconds) << name;
        EXPECT_EQ(typed.reading.form, u"iso8601.duration"_s);
    }
}

TEST(ISODuration, LeavesOtherTexts)
{
    constexpr const char16_t *Texts[] = {
        u"",       u"P",      u"PT",    u"P1DT",    u"1H",       u"P1H",  u"PT1D",
        u"PT1H1H", u"PT1M1H", u"PT.5S", u"PT5.S",   u"PT1.5H2M", u"P-1D", u"P1D T1H",
        u"PT1:30", u"P1",     u"PTS",   u"P1.2.3D", u"PT1HT1M",
    };
    for (const char16_t *text : Texts)
        EXPECT_TRUE(ISODuration::read(FoldedText(QStringView(text))).isUnknown())
            << QString::fromUtf16(text).toStdString();
}

TEST(ISODuration, RefusesMonthsAndYears)
{
    for (const QString &text : {u"P1Y"_s, u"P1M"_s, u"P1Y2M3DT4H"_s}) {
        const TypedDecimal typed = ISODuration::read(FoldedText(text));
        EXPECT_TRUE(typed.isRefused()) << qPrintable(text);
        EXPECT_FALSE(typed.reason.isEmpty());
    }
}

TEST(ISODuration, TellsItsParts)
{
    EXPECT_EQ(ISODuration::read(FoldedText(u"PT1H30M"_s)).reading.parts,
              (QList<KTReadingPart>{{{2, 2}, u"hour"_s, u"1"_s}, {{4, 3}, u"minute"_s, u"30"_s}}));
}
