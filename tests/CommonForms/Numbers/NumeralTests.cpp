// What the separators of a numeral mean in a locale.

#include <KTUtility/CommonForms/Numbers/Numeral_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr char Uneven[] = "uneven";

struct Row
{
    const char *locale;
    const char16_t *text;
    const char *value;      ///< Uneven if the separators stand wrong
    const char *otherValue; ///< of the other reading; empty if there is none
    bool isOwn;             ///< whether all separators are the locale's
};

constexpr Row Rows[] = {
    // No separators.
    {"en_US", u"1234567", "1234567", "", true},
    {"en_US", u"0033", "33", "", true},
    // The locale's own.
    {"en_US", u"1,234.5", "1234.5", "", true},
    {"en_US", u"1,234", "1234", "1.234", true},
    {"en_US", u"1.234", "1.234", "1234", true},
    {"en_US", u"1,234,567", "1234567", "", true},
    {"en_US", u".5", "0.5", "", true},
    {"de_DE", u"1.234", "1234", "1.234", true},
    {"de_DE", u"1.234,567", "1234.567", "", true},
    {"de_DE", u",5", "0.5", "", true},
    {"fr_FR", u"1 234,5", "1234.5", "", true},
    {"fr_FR", u"1\u202F234\u00A0567", "1234567", "", true},
    {"de_CH", u"1\u2019234.5", "1234.5", "", true},
    {"en_IN", u"12,34,567.5", "1234567.5", "", true},
    {"ar_EG", u"\u0661\u066C\u0662\u0663\u0664\u066B\u0665", "1234.5", "", true},
    // Blanks and apostrophes separate groups everywhere.
    {"en_US", u"1 234 567.5", "1234567.5", "", false},
    {"en_US", u"1'234", "1234", "", false},
    {"hi_IN", u"1 414 021 100", "1414021100", "", false},
    // A sign of another convention that can mean one thing only.
    {"de_DE", u"1,234.56", "1234.56", "", false},
    {"en_US", u"1.234,56", "1234.56", "", false},
    {"en_US", u"1.234.567", "1234567", "", false},
    {"de_DE", u"1,234,567", "1234567", "", false},
    {"ru_RU", u"01.10", "1.1", "", false},
    {"ru_RU", u".77", "0.77", "", false},
    {"pl_PL", u"16.00", "16", "", false},
    {"pl_PL", u"1234.567", "1234.567", "", false},
    {"de_CH", u"1,50", "1.5", "", false},
    {"en_US", u"1\u066B5", "1.5", "", false},
    // One that can mean two things is one of groups.
    {"ru_RU", u"1.234", "1234", "1.234", false},
    {"de_CH", u"1,500", "1500", "1.5", false},
    // Signs that stand where no grouping has them.
    {"en_US", u"1,50", Uneven, "", false},
    {"en_US", u"0,123", Uneven, "", false},
    {"en_US", u"12,34,567", Uneven, "", false},
    {"en_US", u"1234,567", Uneven, "", false},
    {"en_US", u"1,2,3", Uneven, "", false},
    {"en_US", u"1.2.3", Uneven, "", false},
    {"en_US", u"1,234.567.8", Uneven, "", false},
    {"en_US", u"1'23", Uneven, "", false},
    {"de_DE", u"1.50", Uneven, "", false},
    {"de_DE", u"0.5", Uneven, "", false},
    {"de_DE", u".5", Uneven, "", false},
    {"de_DE", u"1.234.56", Uneven, "", false},
    {"de_DE", u"1 234.567", Uneven, "", false},
    {"de_DE", u"1.234 567", Uneven, "", false},
    {"en_US", u"1\u066B2\u066B3", Uneven, "", false},
};
} // namespace

TEST(Numeral, ReadsSeparatorsByTheirPlaces)
{
    for (const Row &row : Rows) {
        const FoldedText text{QStringView(row.text)};
        const Numeral numeral = Numeral::at(
            text.text(), 0, *NumberSigns::of(NSLocale(QString::fromLatin1(row.locale))));
        const std::string name = row.locale + (' ' + QString::fromUtf16(row.text).toStdString());
        EXPECT_EQ(numeral.end, text.text().size()) << name;
        if (row.value == Uneven) {
            EXPECT_TRUE(numeral.isUneven) << name;
            continue;
        }
        EXPECT_FALSE(numeral.isUneven) << name;
        EXPECT_EQ(numeral.value().description().toStdString(), row.value) << name;
        EXPECT_EQ(numeral.isOwn, row.isOwn) << name;
        EXPECT_EQ(numeral.isTwofold ? numeral.otherValue().description().toStdString() : "",
                  row.otherValue)
            << name;
    }
}

TEST(Numeral, EndsWhereItEnds)
{
    struct EndRow
    {
        const char16_t *text;
        qsizetype end;
    };
    constexpr EndRow EndRows[] = {
        {u"", 0},     {u"x", 0},       {u".", 0},       {u"-5", 0},      {u"5x", 1},
        {u"5, 6", 1}, {u"12 3/4", 2},  {u"1 234/5", 1}, {u"1 2345", 1},  {u"1 23", 1},
        {u"5.", 2},   {u"5. secs", 2}, {u"5,", 1},      {u"1 234 h", 5}, {u"1 234:5", 1},
    };
    const auto signs = NumberSigns::of(NSLocale(u"en_US"_s));
    for (const EndRow &row : EndRows)
        EXPECT_EQ(Numeral::at(row.text, 0, *signs).end, row.end)
            << QString::fromUtf16(row.text).toStdString();
}

TEST(Numeral, KeepsAllDigitsOrNone)
{
    const auto valueOf = [](const QString &text) {
        return Numeral::at(text, 0, *NumberSigns::of(NSLocale(u"en_US"_s))).value();
    };
    EXPECT_EQ(valueOf(QString(38, u'9')).description(), QString(38, u'9'));
    EXPECT_TRUE(valueOf(QString(39, u'9')).isNaN());
    EXPECT_EQ(valueOf(u'1' + QString(100, u'0')).description(), u'1' + QString(100, u'0'));
    EXPECT_TRUE(valueOf(u'1' + QString(400, u'0')).isNaN());
    EXPECT_TRUE(valueOf(u"0." + QString(200, u'0') + u'1').isNaN());
}

TEST(Numeral, TellsItsParts)
{
    const FoldedText text(u" 1.234,50"_s);
    const Numeral numeral = Numeral::at(text.text(), 0, *NumberSigns::of(NSLocale(u"de_DE"_s)));
    QList<KTReadingPart> parts;
    numeral.addParts(text, &parts);
    EXPECT_EQ(parts, (QList<KTReadingPart>{{{1, 5}, u"integer"_s, u"1234"_s},
                                           {{6, 1}, u"decimal"_s, u"."_s},
                                           {{7, 2}, u"fraction"_s, u"50"_s}}));
}

TEST(Numeral, BlanksSeparateGroupsOfTheLocalesSize)
{
    NumberSigns pairs;
    pairs.points = u","_s;
    pairs.groups = u" "_s;
    pairs.groupSize = pairs.otherGroupSize = 2;
    for (const auto &[text, value] :
         {std::pair{u"1 23 45 67,89"_s, "1234567.89"}, std::pair{u"12 34,00"_s, "1234"},
          std::pair{u"1 234,5"_s, "1234.5"}}) {
        const Numeral numeral = Numeral::at(text, 0, pairs);
        EXPECT_EQ(numeral.end, text.size()) << qPrintable(text);
        EXPECT_FALSE(numeral.isUneven);
        EXPECT_EQ(numeral.value(),
                  NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(value)));
    }
    // Two numbers where groups have three digits.
    EXPECT_EQ(Numeral::at(u"12 34", 0, *NumberSigns::of(NSLocale(u"fr_FR"_s))).end, 2);
}
