#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSSortDescriptor>
#include <KTUtility/NSURL>
#include <KTUtility/ValueMatcher>

#include "support/TestField.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(ValueMatcher, AgreesWithIsEqualToOverAllPairs)
{
    TestField field;
    const QVariantList values = {
        QVariant(),
        QString(),
        u""_s,
        u"a"_s,
        u"1"_s,
        0,
        1,
        1.0,
        true,
        false,
        qlonglong(1),
        QVariant::fromValue(NSDecimalNumber(1)),
        QVariant::fromValue(&field),
        QVariant::fromValue<TestField *>(nullptr),
        QVariantList{1},
        NSNull(),
        QByteArray("a"),
    };
    for (const QVariant &wanted : values) {
        const ValueMatcher matcher(wanted);
        for (const QVariant &candidate : values)
            EXPECT_EQ(matcher.matches(candidate), NSObject::isEqualTo(candidate, wanted))
                << testing::PrintToString(candidate) << " and " << testing::PrintToString(wanted);
    }
}

TEST(NSSortDescriptor, SortsBySeveralKeysInBothDirections)
{
    TestField a1(u"a"_s, 1);
    TestField a2(u"a"_s, 2);
    TestField b1(u"b"_s, 1);
    const QString name = u"name"_s;
    const QString size = u"size"_s;
    const QList<TestField *> fields{&b1, &a1, &a2};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{name, true}, {size, false}}),
              QList<TestField *>({&a2, &a1, &b1}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{size, true}, {name, false}}),
              QList<TestField *>({&b1, &a1, &a2}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {}), fields);
}

TEST(NSURL, TheExampleOfTheHeaderHolds)
{
    const auto url = NSURL::URLWithString(u"cobblemedia://Photo.0.jpg"_s);
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), u"cobblemedia://Photo.0.jpg"_s);
    EXPECT_EQ(url->scheme(), u"cobblemedia"_s);
    EXPECT_FALSE(NSURL::URLWithString(u"http://a b"_s).has_value());
    EXPECT_TRUE(*url == *NSURL::URLWithString(url->absoluteString()));
    EXPECT_TRUE(NSURL::URLWithString(u"1a:b"_s)->scheme().isNull());
}

TEST(NSURL, HostileTextsAreAcceptedOrNot)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const auto url = NSURL::URLWithString(text);
        EXPECT_TRUE(!url || url->absoluteString() == text);
    }
    EXPECT_FALSE(NSURL::URLWithString(u"a%4"_s).has_value());
    EXPECT_FALSE(NSURL::URLWithString(u"a#b#c"_s).has_value());
    EXPECT_TRUE(NSURL::URLWithString(u"a[b]#c"_s).has_value());
}
