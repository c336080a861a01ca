#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSStringFormat>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <climits>
#include <clocale>

using namespace Qt::StringLiterals;

using NSString::stringWithFormat;

namespace {
enum class Colour { Red, Green = 7 };

std::string format(QStringView text, const auto &...arguments)
{
    return stringWithFormat(text, arguments...).toStdString();
}
} // namespace

TEST(NSStringFormat, TheExamplesOfTheHeaderHold)
{
    const QString libraryName = u"Contacts"_s;
    EXPECT_EQ(format(u"%@ has %d fields", libraryName, 12), "Contacts has 12 fields");
    EXPECT_EQ(format(u"%2$@, %1$@", u"Ada", u"Lovelace"), "Lovelace, Ada");
    EXPECT_EQ(format(u"%d of %d", 3), "3 of 0");
}

TEST(NSStringFormat, WritesIntegersOfAllWidths)
{
    EXPECT_EQ(format(u"%d %i %D %ld %lld %qd", 1, 2, 3, 4L, 5LL, 6), "1 2 3 4 5 6");
    EXPECT_EQ(format(u"%5d|%-5d|%05d|%+d|% d", 42, 42, 42, 42, 42), "   42|42   |00042|+42| 42");
    EXPECT_EQ(format(u"%.3d", 7), "007");
    EXPECT_EQ(format(u"%d", LLONG_MIN), "-9223372036854775808");
    EXPECT_EQ(format(u"%d", ULLONG_MAX), "18446744073709551615");
    EXPECT_EQ(format(u"%u %x %X %o %#x", 255, 255, 255, 8, 255), "255 ff FF 10 0xff");
    EXPECT_EQ(format(u"%u %x", -1, -1), "4294967295 ffffffff");
    EXPECT_EQ(format(u"%lx", -1L), "ffffffffffffffff");
    EXPECT_EQ(format(u"%hhd %hd %hhu", 257, 65537, -1), "1 1 255");
    EXPECT_EQ(format(u"%02X", 75), "4B");
    EXPECT_EQ(format(u"%d %d", true, Colour::Green), "1 7");
    EXPECT_EQ(format(u"%d", 'a'), "97");
}

TEST(NSStringFormat, WritesReals)
{
    EXPECT_EQ(format(u"%f %.2f %8.3f|", 1.5, 2.345, 3.14159), "1.500000 2.35    3.142|");
    EXPECT_EQ(format(u"%e %G %a", 12345.678, 1e-10, 1.0), "1.234568e+04 1E-10 0x1p+0");
    EXPECT_EQ(format(u"%f %g", 3, 7u), "3.000000 7");
    EXPECT_EQ(format(u"%@ %@ %@", 0.1, 1e100, 2.0), "0.1 1e+100 2");
    EXPECT_EQ(format(u"%.400f", 0.5).size(), 402U);
    EXPECT_EQ(format(u"%f", 1e308).size(), 316U);
}

TEST(NSStringFormat, WritesTextsAndCharacters)
{
    EXPECT_EQ(format(u"%@ %s %S", u"é"_s, "ü", u"日"), "é ü 日");
    EXPECT_EQ(format(u"[%5@|%-5@|%.2@]", u"ab", u"ab", u"abcdef"), "[   ab|ab   |ab]");
    EXPECT_EQ(format(u"%c%C%C%c", 'x', u'é', U'😀', 65), "xé😀A");
    EXPECT_EQ(format(u"%@", QLatin1String("latin")), "latin");
    EXPECT_EQ(format(u"%@", std::string("utf8 é")), "utf8 é");
    const QString name = u"name"_s;
    EXPECT_EQ(format(u"%@", name + u'.' + name), "name.name");
}

TEST(NSStringFormat, PrecisionCutsNoPair)
{
    EXPECT_EQ(format(u"[%.1@|%.2@|%.3@]", u"😀", u"😀", u"a😀"), "[|😀|a😀]");
    EXPECT_EQ(format(u"[%.2@]", u"a😀"), "[a]");
}

TEST(NSStringFormat, CharactersHaveNoPrecision)
{
    EXPECT_EQ(format(u"%.0c%.c%3.0c", 'x', 'y', 'z'), "xy  z");
}

TEST(NSStringFormat, PercentSignsTakeNoArgument)
{
    EXPECT_EQ(format(u"%% %5% %-3.2% %d", 7), "% % % 7");
}

TEST(NSStringFormat, NumbersDoNotFollowTheLocaleOfTheProcess)
{
    // Whatever the system has of these; the test is of use where it has one.
    const char *const before = ::setlocale(LC_ALL, nullptr);
    const std::string saved = before ? before : "C";
    for (const char *name : {"C", "de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "ar_EG.UTF-8"}) {
        ::setlocale(LC_ALL, name);
        EXPECT_EQ(format(u"%@ %f %g %.2e", 1.5, 1.5, 2.5, 0.5), "1.5 1.500000 2.5 5.00e-01")
            << name;
    }
    ::setlocale(LC_ALL, saved.c_str());
}

TEST(NSStringFormat, NilPrintsAsNull)
{
    EXPECT_EQ(format(u"%@ %@ %@ %s %@", QString(), QVariant(), nullptr,
                     static_cast<const char *>(nullptr), static_cast<QObject *>(nullptr)),
              "(null) (null) (null) (null) (null)");
    EXPECT_EQ(format(u"[%@]", u""_s), "[]");
}

TEST(NSStringFormat, ObjectsPrintTheirDescription)
{
    EXPECT_EQ(format(u"%@", QVariantList{1, u"a"_s}), "(\n    1,\n    a\n)");
    EXPECT_EQ(format(u"%@", NSDecimalNumber::decimalNumberWithString(u"12.50")), "12.5");
    EXPECT_EQ(format(u"%@", QVariant(true)), "1");
    EXPECT_EQ(format(u"%d|%@|%x", QVariant(-1), QVariant(5), QVariant(-1)), "-1|5|ffffffff");
    const TestField field;
    EXPECT_EQ(format(u"%@", &field).rfind("<TestField: 0x", 0), 0U);
    EXPECT_EQ(format(u"%p", reinterpret_cast<const void *>(0x1f)), "0x1f");
}

TEST(NSStringFormat, MissingArgumentsReadNothing)
{
    EXPECT_EQ(format(u"%@ %s %d %f %c|%p"), "(null) (null) 0 0.000000 |(null)");
    EXPECT_EQ(format(u"%3$@ %1$@", u"only"), "(null) only");
    EXPECT_EQ(format(u"%*d|", 5), "    0|");
    EXPECT_EQ(format(u"%n", 5), "%n");
}

TEST(NSStringFormat, WrongKindsPrintAsDescriptions)
{
    EXPECT_EQ(format(u"%d %f", u"text", u"more"_s), "text more");
    EXPECT_EQ(format(u"%s", 12), "12");
    EXPECT_EQ(format(u"%d", 1.5), "1.5");
    EXPECT_EQ(format(u"%c", u"abc"), "abc");
}

TEST(NSStringFormat, TakesWidthsFromArguments)
{
    EXPECT_EQ(format(u"%*d|%-*d|%.*f", 4, 7, 4, 7, 1, 2.25), "   7|7   |2.2");
    EXPECT_EQ(format(u"%*d|", -4, 7), "7   |");
    EXPECT_EQ(format(u"%99999999999d", 1).size(), 4096U);
}

TEST(NSStringFormat, WhatIsNoConversionStays)
{
    EXPECT_EQ(format(u"100%"), "100%");
    EXPECT_EQ(format(u"%%d %%", 5), "%d %");
    EXPECT_EQ(format(u"%y %", 5), "%y %");
    EXPECT_EQ(format(u"%-"), "%-");
    EXPECT_EQ(format(u"%1$", 1), "%1$");
    EXPECT_EQ(format(u""), "");
    EXPECT_EQ(stringWithFormat(QStringView(), 5).size(), 0);
}

TEST(NSStringFormat, HostileTextsAsFormatAndArgument)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const QString shown = text.isNull() ? u"(null)"_s : text;
        EXPECT_EQ(stringWithFormat(u"<%@>", text), u'<' + shown + u'>');
        EXPECT_GE(stringWithFormat(text).size() + 20, text.size());
    }
    EXPECT_EQ(stringWithFormat(testing_support::megabyteOf(u"%@"_s), 1).left(7), u"1(null)"_s);
}

TEST(NSStringFormat, VariantsAreWhatTheyHold)
{
    EXPECT_EQ(format(u"%d %d %d", QVariant(-5), QVariant(true), QVariant(qlonglong(7))), "-5 1 7");
    EXPECT_EQ(format(u"%u %llu %x", QVariant(5U), QVariant(ULLONG_MAX), QVariant(ushort(255))),
              "5 18446744073709551615 ff");
    EXPECT_EQ(format(u"%.2f %@ %g", QVariant(1.5), QVariant(0.1), QVariant(2.5F)), "1.50 0.1 2.5");
    EXPECT_EQ(format(u"%@ %s", QVariant(u"a"_s), QVariant(QString())), "a (null)");
    EXPECT_EQ(format(u"%@", QByteArray("\x01z")), "<017a>");
    EXPECT_EQ(format(u"%@ %@ %@", 'x', u'é', U'😀'), "x é 😀");
}

TEST(NSStringFormat, PassesOverLengthsAndGroupings)
{
    EXPECT_EQ(format(u"%'d %Lf %lld", 1234567, 0.5, 3), "1234567 0.500000 3");
    EXPECT_EQ(format(u"%zu %td %jd", size_t(7), -7, 7), "7 -7 7");
    EXPECT_EQ(format(u"%U %O %D", 8U, 8U, -8), "8 10 -8");
}
