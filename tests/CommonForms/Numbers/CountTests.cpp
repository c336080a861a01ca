// Whole numbers with fractions.

#include <KTUtility/CommonForms/Numbers/Count_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char16_t *text;
    Count::Kind kind;
    const char *value;
    qsizetype end;
};

constexpr Row Rows[] = {
    {u"", Count::Kind::None, "0", 0},
    {u"abc", Count::Kind::None, "0", 0},
    {u"5", Count::Kind::Numeral, "5", 1},
    {u"1,234.5 kg", Count::Kind::Numeral, "1234.5", 7},
    {u"3/4", Count::Kind::Fraction, "0.75", 3},
    {u"20/100", Count::Kind::Fraction, "0.2", 6},
    {u"5/4", Count::Kind::Fraction, "1.25", 3},
    {u"3\u20444", Count::Kind::Fraction, "0.75", 3},
    {u"\u00BD", Count::Kind::Fraction, "0.5", 1},
    {u"\u00BE h", Count::Kind::Fraction, "0.75", 1},
    {u"1\u00BD", Count::Kind::Fraction, "1.5", 2},
    {u"1 \u00BD", Count::Kind::Fraction, "1.5", 3},
    {u"1 3/4", Count::Kind::Fraction, "1.75", 5},
    {u"1 3/4 hours", Count::Kind::Fraction, "1.75", 5},
    {u"0/5", Count::Kind::Fraction, "0", 3},
    {u"3/", Count::Kind::Numeral, "3", 1},
    {u"3/4/5", Count::Kind::Fraction, "0.75", 3},
    {u"1 5/4", Count::Kind::Refused, "0", 1},
    {u"3/0", Count::Kind::Refused, "0", 3},
    {u"1.5 3/4", Count::Kind::Refused, "0", 3},
    {u"1 000/3", Count::Kind::Refused, "0", 1},
    {u"1 050/100", Count::Kind::Refused, "0", 1},
    {u"1 125/500", Count::Kind::Refused, "0", 1},
    {u"1 0/5", Count::Kind::Refused, "0", 1},
    {u"1,5", Count::Kind::Refused, "0", 3},
};
} // namespace

TEST(Count, ReadsFractionsBesideNumerals)
{
    const auto signs = NumberSigns::of(NSLocale(u"en_US"_s));
    for (const Row &row : Rows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const Count count = Count::at(row.text, 0, *signs);
        EXPECT_EQ(count.kind, row.kind) << name;
        EXPECT_EQ(count.end, row.end) << name;
        EXPECT_EQ(count.kind == Count::Kind::Refused, !count.reason.isEmpty()) << name;
        const bool hasValue = count.kind != Count::Kind::Refused;
        EXPECT_EQ(hasValue ? count.value.description().toStdString() : "0", row.value) << name;
    }
}

TEST(Count, RoundsWhatHasNoEnd)
{
    const Count third = Count::at(u"1/3", 0, *NumberSigns::of(NSLocale(u"en_US"_s)));
    EXPECT_EQ(third.value.description(), u"0."_s + QString(38, u'3'));
}

TEST(Count, TellsItsParts)
{
    const FoldedText text(u"1  3/4"_s);
    const Count count = Count::at(text.text(), 0, *NumberSigns::of(NSLocale(u"en_US"_s)));
    QList<KTReadingPart> parts;
    count.addParts(text, &parts);
    EXPECT_EQ(parts, (QList<KTReadingPart>{{{0, 1}, u"integer"_s, u"1"_s},
                                           {{3, 3}, u"fraction"_s, u"0.75"_s}}));
}

TEST(Count, AStrokeThatMayBeAPointIsRefused)
{
    for (const QString &locale : {u"fa_IR"_s, u"ckb_IQ"_s, u"ps_AF"_s}) {
        const auto signs = NumberSigns::of(NSLocale(locale));
        EXPECT_EQ(Count::at(u"2/5", 0, *signs).kind, Count::Kind::Refused);
        EXPECT_EQ(Count::at(u"1 2/5", 0, *signs).kind, Count::Kind::Refused);
        EXPECT_EQ(Count::at(u"\u00BD", 0, *signs).value.description(), u"0.5"_s);
        EXPECT_EQ(Count::at(u"2\u20445", 0, *signs).value.description(), u"0.4"_s);
    }
    const auto arabic = NumberSigns::of(NSLocale(u"ar_EG"_s));
    EXPECT_EQ(Count::at(u"2/5", 0, *arabic).value.description(), u"0.4"_s);
}
