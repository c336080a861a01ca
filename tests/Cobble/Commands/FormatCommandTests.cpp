#include "CommandSupport.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(FormatCommand, ShowsValues)
{
    const std::tuple<const char16_t *, QString> lines[] = {
        {u"format number -1234567.891 --option decimalPlaces=2 --option "
         u"formatNegativeUsingParens=yes",
         u"(1,234,567.89)"_s},
        {u"format currency 1234.5 --option currencyType=JPY", u"¥1,234"_s},
        {u"format duration 93784 --option useAbbreviations=no",
         u"1 day 2 hours 3 minutes 4 seconds"_s},
        {u"format date 2008-03-05T17:30 --option dateStyle=4 --locale fr_FR",
         u"mercredi 5 mars 2008"_s},
        {u"format date 2008-03-05 --option displayYear=false", u"March 5"_s},
        {u"format date+time 2008-03-05T17:30Z", u"3/5/2008 12:30 PM"_s},
        {u"format time 17:30", u"5:30 PM"_s},
        {u"format phone 2125550168", u"(212) 555-0168"_s},
        {u"format number 1e3", u"1,000"_s}};
    for (const auto &[line, display] : lines) {
        const CommandResult result = runLine(line);
        EXPECT_EQ(result.exitCode, 0) << qPrintable(QString::fromUtf16(line));
        EXPECT_TRUE(result.output.contains(u"  display:  " + display + u'\n'))
            << qPrintable(result.output);
    }
}

TEST(FormatCommand, RejectsWhatIsNoValue)
{
    for (const char16_t *line :
         {u"format number 4a2", u"format number 1,5", u"format date 5/3/08", u"format time noon",
          u"format duration 1h", u"format date 2008-02-30"}) {
        const CommandResult result = runLine(line);
        EXPECT_EQ(result.exitCode, 1) << qPrintable(QString::fromUtf16(line));
        EXPECT_TRUE(result.errors.contains(u"is no value of type"_s));
        EXPECT_EQ(result.output, QString());
    }
}
