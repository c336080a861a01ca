#include <KTUtility/Formatters/PhonePatterns_p.h>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace KTPrivate;

namespace {
QString firstFitting(const QStringList &patterns, const QString &number)
{
    return PhonePatterns(patterns).firstFitting(number).value_or(u"none"_s);
}
} // namespace

TEST(PhonePatterns, RunsItsExample)
{
    const PhonePatterns patterns({u"0161 ### ####"_s, u"0#### ######"_s});
    EXPECT_EQ(patterns.firstFitting(u"0161-496 0000"_s), u"0161 ### ####");
    EXPECT_EQ(patterns.firstFitting(u"01223 456789"_s), u"0#### ######");
}

TEST(PhonePatterns, TakesTheFirstHoweverLongItsBeginningIs)
{
    const QStringList patterns{u"0#-#"_s, u"01-#"_s, u"###"_s, u"0-##"_s};
    EXPECT_EQ(firstFitting(patterns, u"012"_s), u"0#-#");
    EXPECT_EQ(firstFitting(patterns, u"912"_s), u"###");
    EXPECT_EQ(firstFitting({u"###"_s, u"01-#"_s}, u"012"_s), u"###");
    EXPECT_EQ(firstFitting({u"01-#"_s, u"###"_s}, u"012"_s), u"01-#");
    EXPECT_EQ(firstFitting({u"#-#"_s, u"##"_s}, u"12"_s), u"#-#");
}

TEST(PhonePatterns, CountsDigitsAndNotUnits)
{
    EXPECT_EQ(firstFitting({u"###"_s, u"##"_s}, u"𝟒1"_s), u"##");
    EXPECT_EQ(firstFitting({u"𝟒#"_s}, u"𝟒1"_s), u"𝟒#");
}

TEST(PhonePatterns, FitsNothingElse)
{
    const QStringList patterns{u"+1 ##"_s, u"12#"_s};
    for (const QString &number : {u""_s, u"12"_s, u"1234"_s, u"+1 2"_s, u"+2 23"_s, u"12a"_s})
        EXPECT_EQ(firstFitting(patterns, number), u"none") << qPrintable(number);
    EXPECT_EQ(firstFitting({}, u"12"_s), u"none");
    EXPECT_EQ(firstFitting({u"()"_s}, u" "_s), u"()"); // no digits at all
}

TEST(PhonePatterns, FitsNoLongText)
{
    const QStringList patterns{u"#"_s.repeated(3), u"+1 ##"_s};
    for (const qsizetype length : {6, 7, 1'000'000})
        EXPECT_EQ(firstFitting(patterns, QString(length, u'1')), u"none") << length;
    EXPECT_EQ(firstFitting(patterns, u"𝟒𝟒𝟒"_s), u"###");
}
