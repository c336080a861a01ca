#include <KTUtility/NSCollections>
#include <KTUtility/NSObject>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <QBitArray>
#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QJsonArray>
#include <QJsonDocument>
#include <QKeySequence>
#include <QLine>
#include <QLocale>
#include <QPointF>
#include <QPointer>
#include <QRect>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>
#include <QUuid>

#include <array>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {
/// A value with one of its own type, which is made when it is asked for.
class NextHash
{
    Q_GADGET
    Q_PROPERTY(NextHash next READ next)

public:
    NextHash next() const { return {}; }
};

enum class HashedColour : quint16 { None };

class HashedPlace
{
    Q_GADGET
    Q_PROPERTY(int x MEMBER x)
    Q_PROPERTY(QString name MEMBER name)

public:
    friend bool operator==(const HashedPlace &, const HashedPlace &) = default;

    int x = 0;
    QString name;
};

/// A value that is equal to others by its number only.
struct NumberedAccount
{
    friend bool operator==(const NumberedAccount &left, const NumberedAccount &right)
    {
        return left.number == right.number;
    }
    friend size_t qHash(const NumberedAccount &account) { return qHash(account.number); }
    friend QDebug operator<<(QDebug stream, const NumberedAccount &account)
    {
        return stream << account.number << account.owner;
    }

    int number = 0;
    QString owner;
};

using Maker = std::function<QVariant(int)>;

template<typename Make>
Maker maker(Make make)
{
    return [make](int number) { return QVariant::fromValue(make(number)); };
}

/// A value of each type that a QVariant can hold, by a number: other numbers, other values.
std::vector<Maker> makers()
{
    static std::array<TestField, 100> fields;
    static std::array<int, 100> integers{};
    const auto pad = [](int number) { return QString::number(number); };
    return {
        maker([](int n) { return n; }),
        maker([](int n) { return n + 0.5; }),
        maker(pad),
        maker([](int n) { return QByteArray::number(n); }),
        maker([](int n) { return QDate(2000, 1, 1).addDays(n); }),
        maker([](int n) { return QTime(0, 0).addSecs(n); }),
        maker([](int n) { return QDateTime::fromMSecsSinceEpoch(n); }),
        maker([](int n) { return QUuid(uint(n), 1, 2, 3, 4, 5, 6, 7, 8, 9, 10); }),
        maker([=](int n) { return QUrl(u"http://example.org/"_s + pad(n)); }),
        maker([](int n) { return QChar(n); }),
        maker([](int n) { return char16_t(n); }),
        maker([](int n) { return char32_t(n); }),
        maker([](int n) { return QSize(n, 1); }),
        maker([](int n) { return QSizeF(n, 1); }),
        maker([](int n) { return QPoint(1, n); }),
        maker([](int n) { return QPointF(1, n); }),
        maker([](int n) { return QRect(1, 2, 3, n); }),
        maker([](int n) { return QRectF(1, 2, 3, n); }),
        maker([](int n) { return QLine(1, 2, 3, n); }),
        maker([](int n) { return QLineF(1, 2, 3, n); }),
        maker([=](int n) { return QRegularExpression(pad(n)); }),
        maker([](int n) {
            QBitArray bits(64);
            bits.setBit(n);
            return bits;
        }),
        maker([](int n) { return QJsonArray{n}; }),
        maker([](int n) { return QJsonDocument(QJsonArray{n}); }),
        maker([](int n) { return QColor(n, 0, 0); }),
        maker([](int n) { return QKeySequence(int(Qt::Key_A) + n); }),
        maker([=](int n) { return QFont(pad(n)); }),
        maker([](int n) { return HashedColour(n); }),
        maker([](int n) { return static_cast<void *>(&integers.at(size_t(n))); }),
        maker([](int n) { return &integers.at(size_t(n)); }),
        maker([](int n) { return static_cast<QObject *>(&fields.at(size_t(n))); }),
        maker([](int n) { return QPointer<QObject>(&fields.at(size_t(n))); }),
        maker([=](int n) {
            return HashedPlace{1, pad(n)};
        }),
        maker([](int n) {
            return QVariantList{1, n};
        }),
        maker([](int n) {
            return QVariantMap{{u"a"_s, n}};
        }),
        maker([=](int n) {
            return QVariantMap{{pad(n), 1}};
        }),
        maker([](int n) { return QList<int>{n}; }),
        maker([](int n) {
            return std::vector<int>{1, n};
        }),
        maker([](int n) {
            return QSet<int>{n, n + 1};
        }),
        maker([](int n) {
            return QMap<int, int>{{n, 1}};
        }),
        maker([](int n) {
            return QHash<QString, int>{{u"a"_s, n}};
        }),
    };
}
} // namespace

TEST(ValueHash, EqualValuesHaveEqualHashesAndOthersHardlyEver)
{
    constexpr int Count = 64;
    for (const Maker &make : makers()) {
        SCOPED_TRACE(make(0).typeName());
        QSet<size_t> hashes;
        for (int number = 0; number < Count; ++number) {
            const QVariant value = make(number);
            EXPECT_TRUE(NSObject::isEqual(value, make(number)));
            EXPECT_EQ(NSObject::hash(value), NSObject::hash(make(number)));
            hashes.insert(NSObject::hash(value));
        }
        EXPECT_GE(hashes.size(), Count / 2);
    }
}

TEST(ValueHash, SetsInAnyOrderHaveOneHash)
{
    QSet<int> forwards;
    QSet<int> backwards;
    backwards.reserve(1000);
    for (int number = 0; number < 100; ++number) {
        forwards.insert(number);
        backwards.insert(99 - number);
    }
    EXPECT_EQ(NSObject::hash(QVariant::fromValue(forwards)),
              NSObject::hash(QVariant::fromValue(backwards)));
}

TEST(ValueHash, CoordinatesAreEqualExactly)
{
    EXPECT_FALSE(NSObject::isEqual(QPointF(1, 1), QPointF(1, 1 + 1e-15)));
    EXPECT_TRUE(NSObject::isEqual(QPointF(0, 1), QPointF(-0.0, 1)));
    EXPECT_EQ(NSObject::hash(QPointF(0, 1)), NSObject::hash(QPointF(-0.0, 1)));
    EXPECT_FALSE(NSObject::isEqual(QSizeF(1, 1), QPointF(1, 1)));
}

TEST(ValueHash, ATypeMayTellItsOwn)
{
    NSObject::registerHash<NumberedAccount>();
    const auto account = [](const QString &owner) {
        return QVariant::fromValue(NumberedAccount{7, owner});
    };
    ASSERT_TRUE(NSObject::isEqual(account(u"Ada"_s), account(u"Bob"_s)));
    EXPECT_EQ(NSObject::hash(account(u"Ada"_s)), NSObject::hash(account(u"Bob"_s)));
}

TEST(ValueHash, OfValuesWithoutEndEnds)
{
    EXPECT_EQ(NSObject::hash(QVariant::fromValue(NextHash())),
              NSObject::hash(QVariant::fromValue(NextHash())));
}

TEST(ValueHash, IsTheSameForAllThatIsNoNumber)
{
    const double quiet = std::numeric_limits<double>::quiet_NaN();
    const QVariant one(quiet);
    const QVariant other(std::copysign(quiet, -1.0));
    ASSERT_TRUE(NSObject::isEqual(one, other));
    EXPECT_EQ(NSObject::hash(one), NSObject::hash(other));
}

#include "ValueHashTests.moc"
