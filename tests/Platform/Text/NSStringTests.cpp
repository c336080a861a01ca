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

using testing_support::hostileTexts;

TEST(NSStringCase, FollowsTheFullRulesInEveryLocale)
{
    QLocale::setDefault(QLocale(QLocale::Turkish, QLocale::Turkey));
    EXPECT_EQ(NSString::lowercaseString(QStringLiteral("TITLE İ")), QStringLiteral("title i̇"));
    EXPECT_EQ(NSString::uppercaseString(QStringLiteral("straße ﬁ i")),
              QStringLiteral("STRASSE FI I"));
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(NSString::lowercaseString(QStringLiteral("ΟΔΟΣ Σ")), QStringLiteral("οδος σ"));
    EXPECT_EQ(NSString::lowercaseString(QStringLiteral("𐐀")), QStringLiteral("𐐨"));
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
    EXPECT_EQ(NSString::stringByUppercasingFirstCharacter(QStringLiteral("𐐨𐐨")),
              QStringLiteral("𐐀𐐨"));
    EXPECT_EQ(NSString::stringByUppercasingFirstCharacter(QStringLiteral("ßa")),
              QStringLiteral("SSa"));
    EXPECT_EQ(NSString::stringByLowercasingFirstCharacter(QStringLiteral("ÉA")),
              QStringLiteral("éA"));
    EXPECT_TRUE(NSString::stringByUppercasingFirstCharacter(QString()).isNull());
    const QString kept = QStringLiteral("Kept");
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
    EXPECT_EQ(NSString::stringByTrimmingCharactersInSet(QStringLiteral("😀a😀b😀😀"), faces),
              QStringLiteral("a😀b"));
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(
                  QStringLiteral("\u00A0\u2028 a b\u200B\r\n")),
              QStringLiteral("a b"));
    EXPECT_EQ(NSString::stringByTrimmingWhitespaceAndNewlines(QStringLiteral(" \n")),
              QStringLiteral(""));
    EXPECT_TRUE(NSString::stringByTrimmingWhitespaceAndNewlines(QString()).isNull());
}

TEST(NSStringEncoding, KnowsWhatFits)
{
    const QString lone(QChar(0xD800));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(QStringLiteral("日"), NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSUTF8StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(lone, NSISOLatin1StringEncoding));
    EXPECT_FALSE(NSString::canBeConvertedToEncoding(QStringLiteral("é"), NSASCIIStringEncoding));
    EXPECT_TRUE(NSString::canBeConvertedToEncoding(QString(), NSASCIIStringEncoding));
    EXPECT_EQ(NSString::stringWithUTF8Data("\xF0\x9F\x98\x80"), QStringLiteral("😀"));
    for (const char *bytes : {"\xFF", "\xC3", "\xE2\x82", "\xF5\x80\x80\x80", "a\x80"})
        EXPECT_TRUE(NSString::stringWithUTF8Data(bytes).isNull());
}

TEST(NSStringCompare, OrdersAsPeopleExpect)
{
    // Each before the next.
    const QStringList ordered = {
        QStringLiteral("_a"),     QStringLiteral("1"),      QStringLiteral("a"),
        QStringLiteral("A"),      QStringLiteral("a b"),    QStringLiteral("ab"),
        QStringLiteral("e"),      QStringLiteral("é"),      QStringLiteral("item 10"),
        QStringLiteral("item 2"), QStringLiteral("resume"), QStringLiteral("Resume"),
        QStringLiteral("résumé"), QStringLiteral("z"),
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
    const QString odd = QStringLiteral("ö");
    EXPECT_TRUE(NSString::localizedCompare(odd, QStringLiteral("z")) < 0);
    QLocale::setDefault(QLocale(QLocale::Swedish, QLocale::Sweden));
    EXPECT_TRUE(NSString::localizedCompare(odd, QStringLiteral("z")) > 0);
    QLocale::setDefault(QLocale::c());
    EXPECT_TRUE(NSString::localizedCompare(odd, QStringLiteral("z")) < 0);
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_TRUE(NSString::localizedCompare(odd, QStringLiteral("z")) < 0);
}

TEST(NSStringCompare, CanonicallyEquivalentTextsAreEqual)
{
    EXPECT_TRUE(NSString::localizedCompare(QStringLiteral("é"), QStringLiteral("e\u0301")) == 0);
    EXPECT_EQ(NSString::indexOfCanonical(QStringLiteral("xe\u0301y"), u"é", 0, Qt::CaseSensitive),
              1);
    EXPECT_EQ(NSString::indexOfCanonical(QStringLiteral("abc"), u"", 0, Qt::CaseSensitive), -1);
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
