// Texts beyond the tables: case, trimming, encodings, order, canonical searches.

#include <KTUtility/NSCharacterSet>
#include <KTUtility/NSStringCase>
#include <KTUtility/NSStringCompare>
#include <KTUtility/NSStringEncoding>
#include <KTUtility/NSStringTrim>
#include <KTUtility/NSStringValues>

#include "support/TestSupport.h"

#include <QLocale>

#include <limits>

using namespace Qt::StringLiterals;

using testing_support::hostileTexts;

TEST(NSStringCase, FollowsTheFullRulesInEveryLocale)
{
    QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
    EXPECT_EQ(NSString::lowercaseString(u"TITLE İ"_s), u"title i̇"_s);
    EXPECT_EQ(NSString::uppercaseString(u"straße ﬁ i"_s), u"STRASSE FI I"_s);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(NSString::lowercaseString(u"ΟΔΟΣ Σ"_s), u"οδος σ"_s);
    EXPECT_EQ(NSString::lowercaseString(u"𐐀"_s), u"𐐨"_s);
    EXPECT_TRUE(NSString::lowercaseString(QString()).isEmpty());
}

TEST(NSStringCase, CapitalisesEachWord)
{
    struct Case
    {
        const char16_t *text;
        const char16_t *result;
    };
    for (const Case &row : {Case{u"hello WORLD", u"Hello World"}, Case{u"don't", u"Don't"},
                            Case{u"a1b_c-d e.f", u"A1B_C-D E.f"}, Case{u"ǆ", u"ǅ"},
                            Case{u"ßa", u"Ssa"}, Case{u"ﬁsh", u"Fish"}, Case{u"ΟΔΟΣ", u"Οδος"},
                            Case{u"日本 x", u"日本 X"}, Case{u"'tis", u"'Tis"}, Case{u"", u""}})
        EXPECT_EQ(NSString::capitalizedString(QString::fromUtf16(row.text)),
                  QString::fromUtf16(row.result));
}

TEST(NSStringCase, FirstCharactersAreCodePoints)
{
    EXPECT_EQ(NSString::stringByUppercasingFirstCharacter(u"𐐨𐐨"_s), u"𐐀𐐨"_s);
    EXPECT_EQ(NSString::stringByUppercasingFirstCharacter(u"ßa"_s), u"SSa"_s);
    EXPECT_EQ(NSString::stringByLowercasingFirstCharacter(u"ÉA"_s), u"éA"_s);
    EXPECT_TRUE(NSString::stringByUppercasingFirstCharacter(QString()).isNull());
    const QString kept = u"Kept"_s;
    EXPECT_EQ(NSString::stringByUppercasingFirstCharacter(kept).constData(), kept.constData());
}

TEST(NSStringCase, HostileTextsKeepTheirPlace)
{
    for (const QString &text : hostileTexts()) {
        EXPECT_EQ(NSString::lowercaseString(NSString::lowercaseString(text)),
                  NSString::lowercaseString(text));
        EXPECT_GE(NSString::uppercaseString(text).size(), text.size());
        EXPECT_EQ(NSString::capitalizedString(text).size(), text.size());
    }
}

TEST(NSStringTrim, TrimsByCodePoint)
{
    const auto faces = NSCharacterSet::characterSetWithCharactersInString(u"😀");
    EXPECT_EQ(NSString::stringByTrimmingCharactersInSet(u"😀a😀b😀😀"_s, faces), u"a😀b"_s);
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(u"\u00A0\u2028 a b\u200B\r\n"_s),
              u"a b"_s);
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(u" \n"_s), u""_s);
    EXPECT_TRUE(NSString::stringByTrimmingWhitespaceAndNewlines(QString()).isNull());
}

TEST(NSStringEncoding, KnowsWhatFits)
{
    const QString lone(QChar(0xD800));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(u"日"_s, NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSISOLatin1StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(u"é"_s, NSASCIIStringEncoding));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(QString(), NSASCIIStringEncoding));
    EXPECT_EQ(NSString::stringWithUTF8Data("\xF0\x9F\x98\x80"), u"😀"_s);
    for (const char *bytes : {"\xFF", "\xC3", "\xE2\x82", "\xF5\x80\x80\x80", "a\x80"})
        EXPECT_TRUE(NSString::stringWithUTF8Data(bytes).isNull());
}

TEST(NSStringCompare, OrdersAsPeopleExpect)
{
    // Each before the next.
    const QStringList ordered = {
        u"_a"_s, u"1"_s,       u"a"_s,      u"A"_s,      u"a b"_s,    u"ab"_s,     u"e"_s,
        u"é"_s,  u"item 10"_s, u"item 2"_s, u"resume"_s, u"Resume"_s, u"résumé"_s, u"z"_s,
    };
    for (qsizetype i = 0; i < ordered.size(); ++i) {
        for (qsizetype j = 0; j < ordered.size(); ++j) {
            const auto order = NSString::localizedCompare(ordered[i], ordered[j]);
            EXPECT_EQ(order < 0, i < j) << i << ' ' << j;
            EXPECT_EQ(order > 0, i > j) << i << ' ' << j;
        }
    }
}

TEST(NSStringCompare, FollowsTheCurrentLocale)
{
    const QString odd = u"ö"_s;
    EXPECT_TRUE(NSString::localizedCompare(odd, u"z"_s) < 0);
    QLocale::setDefault(QLocale(QLocale::Swedish, QLocale::Sweden));
    EXPECT_TRUE(NSString::localizedCompare(odd, u"z"_s) > 0);
    QLocale::setDefault(QLocale::c());
    EXPECT_TRUE(NSString::localizedCompare(odd, u"z"_s) < 0);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(NSString::localizedCompare(odd, u"z"_s) < 0);
}

TEST(NSStringCompare, CanonicallyEquivalentTextsAreEqual)
{
    EXPECT_TRUE(NSString::localizedCompare(u"é"_s, u"e\u0301"_s) == 0);
    EXPECT_EQ(NSString::indexOfCanonical(u"xe\u0301y"_s, u"é", 0, Qt::CaseSensitive), 1);
    EXPECT_EQ(NSString::indexOfCanonical(u"abc"_s, u"", 0, Qt::CaseSensitive), -1);
    EXPECT_EQ(NSString::lengthOfCanonicalPrefix(u"e\u0301x", u"É", Qt::CaseInsensitive), 2);
    EXPECT_EQ(NSString::lengthOfCanonicalPrefix(u"e\u0301x", u"e", Qt::CaseSensitive), 0);
}

TEST(NSStringValues, ReadsTheStartAndClamps)
{
    EXPECT_EQ(NSString::integerValue(u"\n +12x"), 12);
    EXPECT_EQ(NSString::integerValue(u"- 5"), 0);
    EXPECT_EQ(NSString::integerValue(u"١٢"), 0);
    EXPECT_EQ(NSString::integerValue(u"-99999999999999999999"), std::numeric_limits<qint64>::min());
    EXPECT_EQ(NSString::doubleValue(u" -.5e1,"), -5);
    EXPECT_EQ(NSString::doubleValue(u"1e"), 1);
    EXPECT_EQ(NSString::doubleValue(u"."), 0);
    EXPECT_FALSE(NSString::boolValue(QStringView()));
}
