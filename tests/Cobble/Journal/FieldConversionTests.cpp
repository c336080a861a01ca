#include "Journal/FieldConversion.h"
#include "StoreSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSLocale>

using namespace Qt::StringLiterals;

using testing_support::fieldOf;

namespace {
class FieldConversionTests : public testing_support::StoreTest
{
protected:
    FieldConversionTests() { NSLocale::setCurrentLocale(NSLocale(u"en_US"_s)); }
    ~FieldConversionTests() override { NSLocale::resetCurrentLocale(); }

    static Outcome<QVariant> convert(FieldType from, FieldType to, const QVariant &value)
    {
        return FieldConversion(fieldOf(u"A"_s, from), fieldOf(u"A"_s, to)).convert(value);
    }
};

QVariant decimal(const QString &digits)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits));
}
} // namespace

TEST_F(FieldConversionTests, KeepsValuesOfTheSameKind)
{
    const QVariant number = decimal(u"12.345678901234567"_s);
    const QVariant date = QDateTime(QDate(2008, 3, 4), QTime(17, 30), Qt::UTC);
    const struct
    {
        FieldType from;
        FieldType to;
        QVariant value;
    } rows[] = {
        {FieldType::Number, FieldType::Currency, number},
        {FieldType::Currency, FieldType::Number, number},
        {FieldType::DateTime, FieldType::Date, date},
        {FieldType::Date, FieldType::Time, date},
        {FieldType::Phone, FieldType::Text, u"2125550101"_s},
        {FieldType::Number, FieldType::Text, u"many"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(*convert(row.from, row.to, row.value), row.value);
    EXPECT_FALSE(convert(FieldType::Text, FieldType::Number, QVariant())->isValid());
}

TEST_F(FieldConversionTests, ReadsOthersAsTheyAreShown)
{
    EXPECT_EQ(convert(FieldType::Number, FieldType::Text, decimal(u"1234"_s))->toString(),
              u"1,234"_s);
    EXPECT_EQ(*convert(FieldType::Text, FieldType::Number, u"1,234.5"_s), decimal(u"1234.5"_s));
    EXPECT_EQ(*convert(FieldType::Duration, FieldType::Currency, u"$5"_s), decimal(u"5"_s));
}

TEST_F(FieldConversionTests, LosesNoDigits)
{
    const QVariant number = decimal(u"1234.5678"_s);
    EXPECT_EQ(convert(FieldType::Number, FieldType::Text, number)->toString(), u"1234.5678"_s);
    EXPECT_EQ(convert(FieldType::Number, FieldType::Duration, number).reason(),
              u"it has more digits or parts than its field shows"_s);
    const QDateTime date(QDate(2008, 3, 4), QTime(17, 30, 15), Qt::UTC);
    const QString text = convert(FieldType::Date, FieldType::Text, date)->toString();
    EXPECT_EQ(QDateTime::fromString(text, Qt::ISODate), date);
}

TEST_F(FieldConversionTests, SaysWhatItCannotRead)
{
    EXPECT_FALSE(convert(FieldType::Text, FieldType::Number, u"many"_s));
    EXPECT_FALSE(convert(FieldType::Text, FieldType::Date, u"soon"_s));
    EXPECT_EQ(convert(FieldType::Text, FieldType::Media, u"/etc/passwd"_s).reason(),
              u"it is no media file"_s);
    EXPECT_TRUE(convert(FieldType::Text, FieldType::Media, u"cobblemedia://a.0.png"_s));
}

TEST_F(FieldConversionTests, CountsWhatBecomesOfAllValues)
{
    make([this](StepRecorder &step) {
        for (int row = 0; row < 20; ++row) {
            if (const auto added = step.insert(people, {u"12"_s, QVariant(), QVariant()}); !added)
                return Outcome<>(added.failure());
        }
        return step.update(people, 2, 0, QVariant());
    });
    const FieldConversion conversion(people.fields.at(0), fieldOf(u"Name"_s, FieldType::Number));
    const auto preview = conversion.preview(*store, people, 0);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->readCount, 20);
    EXPECT_EQ(preview->unreadCount, 2);
    ASSERT_EQ(preview->unread.size(), 2);
    EXPECT_EQ(preview->unread[1].record, 3);
    EXPECT_EQ(preview->unread[1].text, u"Cid"_s);
    EXPECT_FALSE(preview->unread[1].reason.isEmpty());
}

TEST_F(FieldConversionTests, ShowsTheFirstOfManyThatItCannotRead)
{
    make([this](StepRecorder &step) {
        for (int row = 0; row < 20; ++row) {
            if (const auto added = step.insert(people, {u"x"_s, QVariant(), QVariant()}); !added)
                return Outcome<>(added.failure());
        }
        return Outcome<>();
    });
    const FieldConversion conversion(people.fields.at(0), fieldOf(u"Name"_s, FieldType::Date));
    const auto preview = conversion.preview(*store, people, 0);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->unreadCount, 23);
    EXPECT_EQ(preview->unread.size(), 10);
}
