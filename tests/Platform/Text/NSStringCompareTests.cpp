#include <KTUtility/NSStringCompare>

#include "support/DefaultLocale.h"
#include "support/TestSupport.h"

#include <QLocale>

using namespace Qt::StringLiterals;

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

TEST(NSStringCompare, SortKeysAreInTheOrderOfTheTexts)
{
    const QString texts[] = {u""_s,
                             u"a"_s,
                             u"A"_s,
                             u"ä"_s,
                             u"a\u0308"_s,
                             u"b"_s,
                             u"item 9"_s,
                             u"item 10"_s,
                             u"-"_s,
                             u"ß"_s,
                             u"ss"_s,
                             u"日本"_s,
                             QString(500, u'x'),
                             QString(500, u'字'),
                             u"\U0001F600"_s};
    for (const char *const name : {"de_DE", "sv_SE", "ja_JP", "C"}) {
        const testing_support::DefaultLocale locale{QLocale(QString::fromLatin1(name))};
        for (const QString &left : texts) {
            for (const QString &right : texts)
                EXPECT_EQ(NSString::localizedSortKey(left).compare(
                              NSString::localizedSortKey(right)) <=> 0,
                          NSString::localizedCompare(left, right))
                    << name << qPrintable(left) << qPrintable(right);
        }
    }
}
