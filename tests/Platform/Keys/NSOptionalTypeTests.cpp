// Properties that may be empty.

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSKeyValueCoding>
#include <KTUtility/NSOptionalType>

#include "support/TestSupport.h"

#include <QColor>
#include <QDateTime>

#include <chrono>

using namespace KTLiterals;
using namespace Qt::StringLiterals;

namespace {
/// What a label of a record may have.
class Label : public QObject
{
    Q_OBJECT
    Q_PROPERTY(std::optional<NSDecimalNumber> amount MEMBER amount)
    Q_PROPERTY(std::optional<QString> text MEMBER text)
    Q_PROPERTY(std::optional<int> count MEMBER count)
    Q_PROPERTY(std::optional<QDate> day MEMBER day)
    Q_PROPERTY(std::optional<QColor> tint MEMBER tint)
    Q_PROPERTY(QDate date MEMBER date)
    Q_PROPERTY(QTime time MEMBER time)
    Q_PROPERTY(std::chrono::minutes length MEMBER length)

public:
    std::optional<NSDecimalNumber> amount;
    std::optional<QString> text;
    std::optional<int> count;
    std::optional<QDate> day;
    std::optional<QColor> tint;
    QDate date;
    QTime time;
    std::chrono::minutes length{0};
};

const QDateTime Moment(QDate(2026, 3, 5), QTime(17, 30));

void set(Label &label, const QVariant &value, const QString &key)
{
    NSKeyValueCoding::setValue(&label, value, key);
}

QVariant get(Label &label, const QString &key)
{
    return NSKeyValueCoding::valueForKey(&label, key);
}
} // namespace

TEST(NSOptionalType, TheEmptyOneIsNil)
{
    Label label;
    for (const QString &key : {u"amount"_s, u"text"_s, u"count"_s, u"day"_s})
        EXPECT_FALSE(get(label, key).isValid()) << key.toStdString();
    set(label, 5, u"count"_s);
    set(label, QVariant(), u"count"_s);
    EXPECT_EQ(label.count, std::nullopt);
}

TEST(NSOptionalType, OthersAreWhatTheyHold)
{
    Label label;
    label.amount = 12.5_dec;
    label.count = 0;
    label.text = u""_s;
    EXPECT_EQ(get(label, u"amount"_s).value<NSDecimalNumber>(), 12.5_dec);
    EXPECT_EQ(get(label, u"count"_s), QVariant(0));
    EXPECT_EQ(get(label, u"text"_s), QVariant(u""_s));
}

TEST(NSOptionalType, TakesWhatConverts)
{
    Label label;
    set(label, 12.5, u"amount"_s);
    EXPECT_EQ(label.amount, 12.5_dec);
    set(label, QVariant::fromValue(2.7_dec), u"count"_s);
    EXPECT_EQ(label.count, 2);
    set(label, Moment, u"day"_s);
    EXPECT_EQ(label.day, Moment.date());
    set(label, QVariant::fromValue(std::optional<NSDecimalNumber>(7_dec)), u"count"_s);
    EXPECT_EQ(label.count, 7);
    EXPECT_THROW(set(label, u"abc"_s, u"amount"_s), NSException);
    EXPECT_EQ(label.amount, 12.5_dec);
}

TEST(NSOptionalType, AProgramAddsItsOwn)
{
    Label label;
    label.tint = QColor(Qt::red);
    NSOptionalType::add<QColor>();
    NSOptionalType::add<QColor>();
    EXPECT_EQ(get(label, u"tint"_s).value<QColor>(), QColor(Qt::red));
    set(label, QVariant(), u"tint"_s);
    EXPECT_EQ(label.tint, std::nullopt);
    set(label, QColor(Qt::blue), u"tint"_s);
    EXPECT_EQ(label.tint, QColor(Qt::blue));
}

TEST(NSOptionalType, IsNoneForOtherTypes)
{
    EXPECT_EQ(NSOptionalType::of(QMetaType::fromType<NSDecimalNumber>()), nullptr);
    EXPECT_EQ(NSOptionalType::of(QMetaType::fromType<int>()), nullptr);
    EXPECT_EQ(NSOptionalType::of(QMetaType()), nullptr);
    const NSOptionalType *const type =
        NSOptionalType::of(QMetaType::fromType<std::optional<int>>());
    ASSERT_NE(type, nullptr);
    EXPECT_EQ(type->valueType(), QMetaType::fromType<int>());
}

TEST(NSOptionalType, DatesAndLengthsOfTimeAreSetByKey)
{
    Label label;
    set(label, Moment, u"date"_s);
    set(label, Moment, u"time"_s);
    set(label, QVariant::fromValue(5400_dec), u"length"_s);
    EXPECT_EQ(label.date, Moment.date());
    EXPECT_EQ(label.time, Moment.time());
    EXPECT_EQ(label.length, std::chrono::minutes(90));
    EXPECT_EQ(get(label, u"length"_s).value<NSDecimalNumber>(), 5400_dec);
}

#include "NSOptionalTypeTests.moc"
