#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSSortDescriptor>
#include <KTUtility/NSURL>
#include <KTUtility/NSValueMatcher>

#include "support/TestField.h"
#include "support/TestSupport.h"

TEST(NSValueMatcher, AgreesWithIsEqualToOverAllPairs)
{
    TestField field;
    const QVariantList values = {
        QVariant(),
        QString(),
        QStringLiteral(""),
        QStringLiteral("a"),
        QStringLiteral("1"),
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
        const NSValueMatcher matcher(wanted);
        for (const QVariant &candidate : values)
            EXPECT_EQ(matcher.matches(candidate), NSObject::isEqualTo(candidate, wanted))
                << testing::PrintToString(candidate) << " and " << testing::PrintToString(wanted);
    }
}

TEST(NSSortDescriptor, SortsBySeveralKeysInBothDirections)
{
    TestField a1(QStringLiteral("a"), 1);
    TestField a2(QStringLiteral("a"), 2);
    TestField b1(QStringLiteral("b"), 1);
    const QString name = QStringLiteral("name");
    const QString size = QStringLiteral("size");
    const QList<TestField *> fields{&b1, &a1, &a2};
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{name, true}, {size, false}}),
              QList<TestField *>({&a2, &a1, &b1}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {{size, true}, {name, false}}),
              QList<TestField *>({&b1, &a1, &a2}));
    EXPECT_EQ(NSSortDescriptor::sorted(fields, {}), fields);
}

TEST(NSURL, TheExampleOfTheHeaderHolds)
{
    const auto url = NSURL::URLWithString(QStringLiteral("cobblemedia://Photo.0.jpg"));
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), QStringLiteral("cobblemedia://Photo.0.jpg"));
    EXPECT_EQ(url->scheme(), QStringLiteral("cobblemedia"));
    EXPECT_FALSE(NSURL::URLWithString(QStringLiteral("http://a b")).has_value());
    EXPECT_TRUE(*url == *NSURL::URLWithString(url->absoluteString()));
    EXPECT_TRUE(NSURL::URLWithString(QStringLiteral("1a:b"))->scheme().isNull());
}

TEST(NSURL, HostileTextsAreAcceptedOrNot)
{
    for (const QString &text : testing_support::hostileTexts()) {
        const auto url = NSURL::URLWithString(text);
        EXPECT_TRUE(!url || url->absoluteString() == text);
    }
    EXPECT_FALSE(NSURL::URLWithString(QStringLiteral("a%4")).has_value());
    EXPECT_FALSE(NSURL::URLWithString(QStringLiteral("a#b#c")).has_value());
    EXPECT_TRUE(NSURL::URLWithString(QStringLiteral("a[b]#c")).has_value());
}
