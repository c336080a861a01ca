// Texts beyond the tables: case, trimming, encodings, order, canonical searches.

#include <KTUtility/NSStringCase>

#include "support/TestSupport.h"

#include <QLocale>

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
