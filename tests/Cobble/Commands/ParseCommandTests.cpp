#include "CommandSupport.h"

#include "Formatters/FormatterSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(ParseCommand, ShowsValueDisplayEditingTextAndPattern)
{
    const CommandResult result =
        runLine(u"parse date 3/4/08·5:30·PM --locale en_US --option readsCommonForms=no");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, QString());
    EXPECT_EQ(result.output, u"3/4/08 5:30 PM\n"
                             "  value:    2008-03-04 17:30:00 -0500\n"
                             "  display:  3/4/2008\n"
                             "  editing:  3/4/2008\n"
                             "  pattern:  M/d/yy h:m a\n"_s);
}

TEST(ParseCommand, ReadsEveryType)
{
    const std::tuple<const char16_t *, QString, QString> lines[] = {
        {u"parse number (1,234.5)", u"-1234.5"_s, u"-1,235"_s},
        {u"parse number -5", u"-5"_s, u"-5"_s},
        {u"parse number -- -5", u"-5"_s, u"-5"_s},
        {u"parse number 1.234,5 --locale de_DE", u"1234.5"_s, u"1.235"_s},
        {u"parse currency ($12.50)", u"-12.5"_s, u"-$12.50"_s},
        {u"parse currency €5 --option currencyType=EUR", u"5"_s, u"€5.00"_s},
        {u"parse duration 2h·30m", u"9000"_s, u"2h 30m"_s},
        {u"parse phone 2125550168", u"2125550168"_s, u"(212) 555-0168"_s},
        {u"parse phone +442079460944 --locale=en_GB", u"+442079460944"_s, u"+44 20 7946 0944"_s},
        {u"parse time 5:30pm", u"2001-01-01 17:30:00 -0500"_s, u"5:30 PM"_s},
        {u"parse datetime 3/4/08·5pm", u"2008-03-04 17:00:00 -0500"_s, u"3/4/2008 5:00 PM"_s}};
    for (const auto &[line, value, display] : lines) {
        const CommandResult result = runLine(line);
        EXPECT_EQ(result.exitCode, 0) << qPrintable(QString::fromUtf16(line));
        EXPECT_TRUE(result.output.contains(u"  value:    " + value + u'\n'))
            << qPrintable(result.output);
        EXPECT_TRUE(result.output.contains(u"  display:  " + display + u'\n'))
            << qPrintable(result.output);
    }
    EXPECT_EQ(NSLocale::currentLocale().localeIdentifier(), u"en_US"); // as it was
}

TEST(ParseCommand, NamesNoPatternForIsoDates)
{
    EXPECT_TRUE(runLine(u"parse date 2008-03-05 --option readsCommonForms=no")
                    .output.endsWith(
                        u"  pattern:  ISO 8601, or one that took only a part of the text\n"_s));
    EXPECT_FALSE(runLine(u"parse date someday").output.contains(u"pattern:"_s));
}

TEST(ParseCommand, TellsWhatIsNotRead)
{
    const CommandResult result = runLine(u"parse number 12abc abc 7");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, u"12abc\n"
                             "  not read:  The text is no number, or has something else in it.\n"
                             "abc\n"
                             "  not read:  The text is no number, or has something else in it.\n"
                             "7\n"
                             "  value:    7\n"
                             "  display:  7\n"
                             "  editing:  7\n"_s);
    EXPECT_TRUE(runLine(u"parse duration 90").output.contains(u"Could not convert to a time"_s));
    EXPECT_TRUE(
        runLine(u"parse date someday")
            .output.contains(u"The text is in no form of dates and times that is known."_s));
    EXPECT_TRUE(runLine(u"parse currency €5")
                    .output.contains(u"The text names the currency EUR; this field has USD."_s));
}

TEST(ParseCommand, TakesNoSeparatorForAnotherOne)
{
    const char16_t *const lines[] = {u"parse number 1,50 --locale en_US",
                                     u"parse number 1.50 --locale de_DE",
                                     u"parse currency 5.00·€ --locale de_DE"};
    for (const char16_t *line : lines) {
        const CommandResult result = runLine(line);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.output.contains(u"not read:  The separators do not stand where"_s))
            << qPrintable(result.output);
    }
    const CommandResult result =
        runLine(u"parse number 1,50 --locale de_CH --option rejectsUnevenGroups=no "
                u"--option readsCommonForms=no");
    EXPECT_TRUE(result.output.contains(u"value:    150\n"_s)) << qPrintable(result.output);
}

TEST(ParseCommand, ReadsCurrenciesAsPeopleWriteThem)
{
    const std::pair<const char16_t *, QString> lines[] = {
        {u"parse currency ¥500 --locale ja_JP", u"500"_s},
        {u"parse currency 5·kr --locale da_DK", u"5"_s},
        {u"parse currency 5·Euro --locale de_DE", u"5"_s}};
    for (const auto &[line, value] : lines)
        EXPECT_TRUE(runLine(line).output.contains(u"  value:    " + value + u'\n'))
            << qPrintable(QString::fromUtf16(line));
}

TEST(ParseCommand, SaysWhatIsWrongWithItself)
{
    const std::pair<const char16_t *, const char16_t *> lines[] = {
        {u"parse", u"parse needs a type: number, currency, duration, time, date, date+time, phone"},
        {u"parse money 5", u"unknown type 'money'"},
        {u"parse text 5", u"unknown type 'text'"},
        {u"parse number", u"parse needs something to parse"},
        {u"format number", u"format needs something to format"},
        {u"parse number 5 --locale xx_YY", u"unknown locale 'xx_YY'"},
        {u"parse number 5 --option decimalPlaces", u"bad option 'decimalPlaces'; there are "},
        {u"parse number 5 --option shoeSize=42", u"bad option 'shoeSize=42'"},
        {u"parse number 5 --option objectName=x", u"bad option 'objectName=x'"},
        {u"parse number 5 --option decimalPlaces=many", u"bad value 'many' for decimalPlaces"},
        {u"parse number 5 --option highlightNegative=maybe", u"bad value 'maybe'"},
        {u"parse phone 5 --option x=1", u"bad option 'x=1'; there are readsCommonForms"},
        {u"parse date 3/4/08 --option dateStyle=0", u"dateStyle and timeStyle cannot both be 0"},
        {u"parse time 5:30 --option timeStyle=0", u"dateStyle and timeStyle cannot both be 0"},
        {u"format date 2008-03-05 --option dateStyle=0", u"dateStyle and timeStyle cannot"}};
    for (const auto &[line, mistake] : lines) {
        const CommandResult result = runLine(line);
        EXPECT_EQ(result.exitCode, 2) << qPrintable(QString::fromUtf16(line));
        EXPECT_TRUE(result.errors.startsWith(u"cobble: " + QString::fromUtf16(mistake)))
            << qPrintable(result.errors.left(200));
        EXPECT_TRUE(result.errors.contains(u"Usage:"));
    }
    EXPECT_EQ(runLine(u"parse --help").exitCode, 0);
}

TEST(ParseCommand, TellsWhyWhenAsked)
{
    // What a formatter tells of its reading depends on the form; what is not read has a reason.
    const CommandResult result = runLine(u"parse duration 1h·30m cow --why");
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.output.contains(u"  value:    5400\n"_s)) << qPrintable(result.output);
    EXPECT_TRUE(result.output.contains(u"  why:       Could not convert to a time\n"_s))
        << qPrintable(result.output);
    EXPECT_FALSE(runLine(u"parse duration cow").output.contains(u"why:"_s));
    // Behind "--" and for the other command, it is a value.
    EXPECT_TRUE(runLine(u"parse number -- --why").output.startsWith(u"--why\n"_s));
    EXPECT_TRUE(runLine(u"format number 5 --why").errors.contains(u"'--why' is no value"_s));
}

TEST(ParseCommand, SurvivesAnyText)
{
    for (const QString &text : hostileTexts()) {
        for (const QString &type : {u"number"_s, u"currency"_s, u"date"_s, u"duration"_s})
            EXPECT_NE(runInProcess({u"parse"_s, type, u"--"_s, text}).exitCode, 2);
    }
}
