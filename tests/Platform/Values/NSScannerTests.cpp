#include <KTUtility/NSException>
#include <KTUtility/NSScanner>

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(NSScanner, TheExampleOfTheHeaderHolds)
{
    NSScanner scanner(u"  width: 12.5 mm");
    QString name;
    double width = 0;
    EXPECT_TRUE(scanner.scanUpToString(u":", &name));
    EXPECT_TRUE(scanner.scanString(u":"));
    EXPECT_TRUE(scanner.scanDouble(&width));
    EXPECT_EQ(name, u"width"_s);
    EXPECT_EQ(width, 12.5);
    EXPECT_FALSE(scanner.isAtEnd());
}

TEST(NSScanner, FailuresLeaveTheLocationBeforeTheSkip)
{
    NSScanner scanner(u"  abc");
    EXPECT_FALSE(scanner.scanInt());
    EXPECT_FALSE(scanner.scanString(u"x"));
    EXPECT_FALSE(scanner.scanUpToString(u"a"));
    EXPECT_EQ(scanner.scanLocation(), 0);
    QString untouched = u"before"_s;
    EXPECT_FALSE(
        scanner.scanCharactersFromSet(NSCharacterSet::decimalDigitCharacterSet(), &untouched));
    EXPECT_EQ(untouched, u"before"_s);
}

TEST(NSScanner, LocationsBeyondTheEndRaise)
{
    NSScanner scanner(u"hello");
    scanner.setScanLocation(5);
    EXPECT_RAISES(scanner.setScanLocation(6), NSRangeException,
                  u"-[NSScanner setScanLocation:]: location 6 beyond length 5"_s);
    EXPECT_THROW(scanner.setScanLocation(-1), NSException);
    EXPECT_EQ(scanner.scanLocation(), 5);
}

TEST(NSScanner, NumbersClamp)
{
    qint32 small = 0;
    qint64 large = 0;
    EXPECT_TRUE(NSScanner(u"99999999999").scanInt(&small));
    EXPECT_EQ(small, INT32_MAX);
    EXPECT_TRUE(NSScanner(u"-99999999999").scanInt(&small));
    EXPECT_EQ(small, INT32_MIN);
    EXPECT_TRUE(NSScanner(u"-99999999999999999999").scanLongLong(&large));
    EXPECT_EQ(large, INT64_MIN);
    EXPECT_TRUE(NSScanner(u"-9223372036854775808").scanLongLong(&large));
    EXPECT_EQ(large, INT64_MIN);
}

TEST(NSScanner, SurrogatePairsAreOneCharacter)
{
    const auto faces = NSCharacterSet::characterSetWithCharactersInString(u"😀");
    QString found;
    NSScanner scanner(u"a😀b");
    EXPECT_TRUE(scanner.scanUpToCharactersFromSet(faces, &found));
    EXPECT_EQ(found, u"a"_s);
    EXPECT_TRUE(scanner.scanCharactersFromSet(faces, &found));
    EXPECT_EQ(found, u"😀"_s);
}

TEST(NSScanner, StringsMatchCanonically)
{
    QString found;
    NSScanner composed(u"e\u0301te");
    EXPECT_TRUE(composed.scanString(u"é", &found));
    EXPECT_EQ(found.size(), 2);
    EXPECT_FALSE(NSScanner(u"e\u0301").scanString(u"e"));
    NSScanner search(u"un e\u0301té");
    EXPECT_TRUE(search.scanUpToString(u"É", &found));
    EXPECT_EQ(found, u"un "_s);
    search.setCaseSensitive(true);
    EXPECT_FALSE(search.scanString(u"É"));
}

TEST(NSScanner, HostileTextsEnd)
{
    for (const QString &text : testing_support::hostileTexts()) {
        NSScanner scanner(text);
        int steps = 0;
        while (!scanner.isAtEnd() && steps < 100) {
            EXPECT_TRUE(scanner.scanUpToCharactersFromSet(
                NSCharacterSet::whitespaceAndNewlineCharacterSet()));
            ++steps;
        }
        EXPECT_FALSE(NSScanner(text).scanDouble() && text.isEmpty());
    }
}
