// Equality, order, identity, hashes and descriptions of dates, data, lists and other values.

#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QSize>
#include <QTimeZone>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {
QDateTime utc(int year)
{
    return QDateTime(QDate(year, 3, 5), QTime(17, 30), KTPrivate::UTC);
}

void expectEqual(const QVariant &left, const QVariant &right)
{
    EXPECT_TRUE(NSObject::isEqual(left, right));
    EXPECT_TRUE(NSObject::isEqualTo(left, right));
    EXPECT_EQ(NSObject::hash(left), NSObject::hash(right));
    EXPECT_EQ(NSObject::compare(left, right), std::weak_ordering::equivalent);
}
} // namespace

TEST(NSObjectValues, DatesAreInstantsWhateverTheirZone)
{
    expectEqual(utc(2008), utc(2008).toTimeZone(QTimeZone("Asia/Kolkata")));
    EXPECT_FALSE(NSObject::isEqual(utc(2008), utc(2009)));
    EXPECT_EQ(NSObject::compare(utc(2008), utc(2009)), std::weak_ordering::less);
    EXPECT_EQ(NSObject::compare(utc(2009), utc(2008)), std::weak_ordering::greater);
}

TEST(NSObjectValues, DataIsItsBytes)
{
    const QByteArray bytes("\0\x01z", 3);
    QByteArray copy(bytes.constData(), bytes.size());
    expectEqual(bytes, copy);
    EXPECT_FALSE(NSObject::isEqual(bytes, QByteArray("\0\x01y", 3)));
    EXPECT_TRUE(NSObject::isIdenticalTo(bytes, QByteArray(bytes)));
    EXPECT_FALSE(NSObject::isIdenticalTo(bytes, copy));
    EXPECT_EQ(NSObject::compare(QByteArray("a"), QByteArray("b")), std::weak_ordering::less);
    EXPECT_EQ(NSObject::description(bytes), u"<00017a>");
}

TEST(NSObjectValues, ListsAndMapsAreTheirElements)
{
    const QVariantList whole{1, u"a"_s, utc(2008)};
    const QVariantList real{1.0, u"a"_s, utc(2008)};
    EXPECT_TRUE(NSObject::isEqual(whole, real));
    EXPECT_EQ(NSObject::hash(whole), NSObject::hash(real));
    EXPECT_FALSE(NSObject::isEqual(whole, whole.mid(1)));
    const QVariantMap left{{u"k"_s, 1}};
    const QVariantMap right{{u"k"_s, 1.0}};
    EXPECT_TRUE(NSObject::isEqual(left, right));
    EXPECT_EQ(NSObject::hash(left), NSObject::hash(right));
    EXPECT_FALSE(NSObject::isEqual(left, QVariantMap({{u"j"_s, 1}})));
}

TEST(NSObjectValues, ListsMayHoldNil)
{
    const QVariantList nils{QVariant(), QString()};
    EXPECT_TRUE(NSObject::isEqual(nils, QVariantList({QString(), QVariant()})));
    EXPECT_FALSE(NSObject::isEqual(nils, QVariantList({0, QString()})));
}

TEST(NSObjectValues, OtherTypesCompareWithTheirLike)
{
    EXPECT_TRUE(NSObject::isEqual(QSize(1, 2), QSize(1, 2)));
    EXPECT_FALSE(NSObject::isEqual(QSize(1, 2), QSize(1, 3)));
    EXPECT_FALSE(NSObject::isEqual(QSize(1, 2), QUrl(u"http://example.org"_s)));
    EXPECT_NE(NSObject::compare(QSize(1, 2), QUrl(u"http://example.org"_s)),
              std::weak_ordering::equivalent);
    EXPECT_EQ(NSObject::compare(QTime(1, 0), QTime(2, 0)), std::weak_ordering::less);
    EXPECT_EQ(NSObject::compare(QTime(2, 0), QTime(1, 0)), std::weak_ordering::greater);
    EXPECT_EQ(NSObject::compare(QTime(1, 0), QTime(1, 0)), std::weak_ordering::equivalent);
}
