// Texts that are a number and nothing else.

#include <KTUtility/CommonForms/Numbers/NumberGrammar_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char *locale;
    const char16_t *text;
    const char *value;
    const char *form;
};

constexpr Row Rows[] = {
    {"en_US", u"5", "5", "number"},
    {"en_US", u" 1,234.50 ", "1234.5", "number"},
    {"en_US", u"-5", "-5", "number"},
    {"en_US", u"- 1,200,000", "-1200000", "number"},
    {"en_US", u"\u22125", "-5", "number"},
    {"en_US", u"+5", "5", "number"},
    {"en_US", u"(5)", "-5", "number"},
    {"en_US", u"(-5)", "-5", "number"},
    {"en_US", u"( 5 )", "-5", "number"},
    {"en_US", u"5-", "-5", "common.number"},
    {"en_US", u"5 -", "-5", "common.number"},
    {"en_US", u"5.", "5", "number"},
    {"en_US", u"\uFF11\uFF0C\uFF12\uFF13\uFF14", "1234", "number"},
    {"en_US", u"1 234", "1234", "common.number"},
    {"de_DE", u"1,234.56", "1234.56", "common.number"},
    {"en_US", u"3/4", "0.75", "common.fraction"},
    {"en_US", u"-1 3/4", "-1.75", "common.fraction"},
    {"en_US", u"(\u00BD)", "-0.5", "common.fraction"},
    {"en_US", u"1e5", "100000", "common.exponent"},
    {"en_US", u"1.5E-3", "0.0015", "common.exponent"},
    {"en_US", u"-2e+2", "-200", "common.exponent"},
    {"sv_SE", u"1,5\u00D710^3", "1500", "common.exponent"},
};

constexpr const char16_t *Unread[] = {
    u"",    u" ",       u"-",   u"()",     u"(5",    u"5)",  u"--5", u"-5-",   u"(+5)",
    u"5 6", u"5x",      u"x5",  u"$5",     u"5e",    u"5e+", u"1e",  u"12:30", u"2008-03-05",
    u"5.-", u"5\u00B2", u"NaN", u"\u221E", u"1_000", u"+-5", u"5+",  u"5 e5",  u"1-2",
};

constexpr const char16_t *Refused[] = {
    u"1,50", u"3/0", u"1 5/4", u"50 %", u"%50", u"1e9999", u"1,5e3", u"(1,50)", u"-1,50",
};

TypedDecimal read(const char *locale, const char16_t *text,
                  NumberGrammar::Kind kind = NumberGrammar::Kind::Number)
{
    return NumberGrammar::read(FoldedText(QStringView(text)),
                               *NumberSigns::of(NSLocale(QString::fromLatin1(locale))), kind);
}
} // namespace

TEST(NumberGrammar, ReadsWhatPeopleType)
{
    for (const Row &row : Rows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const TypedDecimal typed = read(row.locale, row.text);
        ASSERT_TRUE(typed.isRead()) << name;
        EXPECT_EQ(typed.value.description().toStdString(), row.value) << name;
        EXPECT_EQ(typed.reading.form.toStdString(), row.form) << name;
        EXPECT_FALSE(typed.reading.parts.isEmpty()) << name;
    }
}

TEST(NumberGrammar, LeavesWhatIsNoNumber)
{
    for (const char16_t *text : Unread)
        EXPECT_TRUE(read("en_US", text).isUnknown()) << QString::fromUtf16(text).toStdString();
    EXPECT_TRUE(
        NumberGrammar::read(FoldedText(QString(5000, u'1')), *NumberSigns::of(NSLocale(u"en_US"_s)))
            .isUnknown());
}

TEST(NumberGrammar, RefusesWithAReason)
{
    for (const char16_t *text : Refused) {
        const TypedDecimal typed = read("en_US", text);
        EXPECT_TRUE(typed.isRefused()) << QString::fromUtf16(text).toStdString();
        EXPECT_FALSE(typed.reason.isEmpty());
    }
}

TEST(NumberGrammar, ReadsPercentagesWhereTheyAreMeant)
{
    constexpr Row PercentRows[] = {
        {"en_US", u"50%", "0.5", "common.percent"},
        {"en_US", u"50 %", "0.5", "common.percent"},
        {"tr_TR", u"%50", "0.5", "common.percent"},
        {"tr_TR", u"-%50", "-0.5", "common.percent"},
        {"tr_TR", u"% -50", "-0.5", "common.percent"},
        {"de_DE", u"-12,5 %", "-0.125", "common.percent"},
        {"en_US", u"(5%)", "-0.05", "common.percent"},
        {"ar_EG", u"\u0665\u0660\u066A", "0.5", "common.percent"},
        {"en_US", u"50", "0.5", "common.percent"},
        {"en_US", u"\u00BD %", "0.005", "common.fraction"},
    };
    for (const Row &row : PercentRows) {
        const std::string name = QString::fromUtf16(row.text).toStdString();
        const TypedDecimal typed = read(row.locale, row.text, NumberGrammar::Kind::Percent);
        ASSERT_TRUE(typed.isRead()) << name;
        EXPECT_EQ(typed.value.description().toStdString(), row.value) << name;
        EXPECT_EQ(typed.reading.form.toStdString(), row.form) << name;
    }
    EXPECT_FALSE(read("en_US", u"%50%", NumberGrammar::Kind::Percent).isRead());
}

TEST(NumberGrammar, TellsTheOtherReadingAndTheParts)
{
    const TypedDecimal typed = read("de_DE", u"-1.234");
    EXPECT_EQ(typed.value, NSDecimalNumber(-1234));
    EXPECT_EQ(typed.reading.alternative.value<NSDecimalNumber>().description(), u"-1.234"_s);
    EXPECT_EQ(typed.reading.alternativeForm, u"common.number"_s);
    EXPECT_EQ(typed.reading.parts, (QList<KTReadingPart>{{{0, 1}, u"minusSign"_s, u"-"_s},
                                                         {{1, 5}, u"integer"_s, u"1234"_s}}));
    EXPECT_FALSE(read("de_DE", u"1.234,5").reading.isAmbiguous());
    const TypedDecimal exponent = read("en_US", u"2e-3");
    EXPECT_EQ(exponent.reading.parts.last(), (KTReadingPart{{1, 3}, u"exponent"_s, u"-3"_s}));
    const TypedDecimal percent = read("en_US", u"5 %", NumberGrammar::Kind::Percent);
    EXPECT_EQ(percent.reading.parts.last(), (KTReadingPart{{2, 1}, u"percentSign"_s, u"%"_s}));
}
