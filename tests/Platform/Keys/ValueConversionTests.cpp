#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Keys/ValueConversion_p.h>

#include "support/TestField.h"
#include "support/TestSupport.h"

#include <climits>
#include <cmath>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

enum class ConvertedColour : short { Red, Green = -7 };

namespace {
QVariant decimal(QStringView text)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text));
}

struct Row
{
    QVariant value;
    QVariant expected; ///< of the type that is asked for
};

template<typename T>
QVariant as(T value)
{
    return QVariant::fromValue(value);
}
} // namespace

TEST(ValueConversion, NumbersConvertAsThePlatformsDo)
{
    const Row rows[] = {
        {decimal(u"3"), as(3)},
        {decimal(u"2.7"), as(2)},
        {decimal(u"-2.7"), as(-2)},
        {decimal(u"2.7"), as(2.7)},
        {decimal(u"0.5"), as(0.5F)},
        {decimal(u"0"), as(false)},
        {decimal(u"0.1"), as(true)},
        {2.7, as(2)},
        {-2.7, as(-2)},
        {2.5F, as(2LL)},
        {0.5, as(true)},
        {5, as(true)},
        {true, as(1)},
        {true, as(1.0)},
        {300, as<uchar>(44)},
        {300, as<signed char>(44)},
        {70000, as<short>(4464)},
        {5000000000LL, as(705032704)},
        {-1, as(UINT_MAX)},
        {-1, as(ULLONG_MAX)},
        {ULLONG_MAX, as(-1LL)},
        {1e19, as(10000000000000000000ULL)},
        {-5.9, as(-5L)},
        {7, decimal(u"7")},
        {2.5, decimal(u"2.5")},
        {ULLONG_MAX, decimal(u"18446744073709551615")},
        {-7.9, as(ConvertedColour::Green)},
        {as(ConvertedColour::Green), as(-7)},
        {as(ConvertedColour::Green), as(-7.0)},
        {as(ConvertedColour::Red), as(false)},
        {std::nan(""), as(0)},
    };
    for (const Row &row : rows) {
        const auto result = convertedValue(row.value, row.expected.metaType());
        ASSERT_TRUE(result.has_value()) << row.value.typeName();
        EXPECT_EQ(result->metaType(), row.expected.metaType()) << row.value.typeName();
        EXPECT_TRUE(NSObject::isEqual(*result, row.expected))
            << testing::PrintToString(row.value) << ": " << testing::PrintToString(*result);
    }
}

TEST(ValueConversion, TextsAreTrueAsThePlatformReadsThem)
{
    const std::pair<const char16_t *, bool> rows[] = {
        {u"NO", false}, {u"no", false}, {u"false", false}, {u"0", false}, {u"", false},
        {u"x", false},  {u"YES", true}, {u"true", true},   {u"1", true},  {u"12", true}};
    for (const auto &[text, expected] : rows)
        EXPECT_EQ(convertedValue(QString::fromUtf16(text), QMetaType(QMetaType::Bool)),
                  QVariant(expected))
            << QString::fromUtf16(text).toStdString();
}

TEST(ValueConversion, OtherTypesConvertAsVariantsDo)
{
    const QMetaType number(QMetaType::Int);
    EXPECT_EQ(convertedValue(u"7"_s, number), QVariant(7));
    EXPECT_EQ(convertedValue(7, QMetaType(QMetaType::QString)), QVariant(u"7"_s));
    EXPECT_EQ(convertedValue(u"seven"_s, number), std::nullopt);
    EXPECT_EQ(convertedValue(QVariantList{1}, number), std::nullopt);
    TestField field;
    const QVariant object = QVariant::fromValue<QObject *>(&field);
    EXPECT_EQ(convertedValue(object, QMetaType::fromType<TestField *>()), object);
}
