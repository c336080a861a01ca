// Decimals as values of Qt and of C++: literals, operators, variants, hashes, streams.

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>

#include "support/TestSupport.h"

#include <QDataStream>
#include <QDebug>

#include <cmath>
#include <limits>
#include <unordered_set>

using namespace KTLiterals;
using namespace Qt::StringLiterals;

namespace {
NSDecimalNumber decimal(QStringView text)
{
    return NSDecimalNumber::decimalNumberWithString(text);
}

QVariant variant(QStringView text)
{
    return QVariant::fromValue(decimal(text));
}

/// What a variant with the decimal becomes as another type; nothing if it becomes none.
template<typename To>
std::optional<To> as(QStringView text)
{
    QVariant value = variant(text);
    if (!value.convert(QMetaType::fromType<To>()))
        return std::nullopt;
    return value.value<To>();
}
} // namespace

TEST(DecimalConversions, LiteralsAreExact)
{
    EXPECT_EQ(0.10_dec, decimal(u"0.1"));
    EXPECT_EQ(12_dec, NSDecimalNumber(12));
    EXPECT_EQ(-1'234.5_dec, decimal(u"-1234.5"));
    EXPECT_EQ(1e-3_dec, decimal(u"0.001"));
    EXPECT_EQ(0_dec, NSDecimalNumber());
    EXPECT_EQ(1.2345678901234567890123456789012345678_dec,
              decimal(u"1.2345678901234567890123456789012345678"));
}

TEST(DecimalConversions, OperatorsCalculateExactly)
{
    EXPECT_EQ(12.50_dec + 0.10_dec * NSDecimalNumber(3), 12.8_dec);
    EXPECT_EQ(12.50_dec + 0.10_dec * 3, 12.8_dec);
    EXPECT_EQ(2 * 1.5_dec - 1, 2_dec);
    EXPECT_EQ(1 - 0.75_dec, 0.25_dec);
    EXPECT_EQ(1U / 4_dec + 5 + (2 + 1_dec / 2), 7.75_dec);
    EXPECT_EQ(1_dec - 0.9_dec, 0.1_dec);
    EXPECT_EQ(1_dec / 8_dec, 0.125_dec);
    EXPECT_EQ(-(+5_dec), decimal(u"-5"));
    NSDecimalNumber sum = 1_dec;
    sum += 2_dec;
    sum *= 10_dec;
    sum -= 5_dec;
    sum /= 4_dec;
    EXPECT_EQ(sum, 6.25_dec);
    EXPECT_THROW(sum / 0_dec, NSException);
}

TEST(DecimalConversions, AreMadeOfNumbersExactly)
{
    EXPECT_EQ(NSDecimalNumber(12.5), 12.5_dec);
    EXPECT_EQ(NSDecimalNumber(12.5F), 12.5_dec);
    EXPECT_GT(NSDecimalNumber(0.1), 0.1_dec);
    EXPECT_TRUE(NSDecimalNumber(std::nan("")).isNaN());
    EXPECT_EQ(NSDecimalNumber(std::numeric_limits<quint64>::max()), 18446744073709551615_dec);
    EXPECT_EQ(NSDecimalNumber(std::numeric_limits<qint64>::min()), -9223372036854775808_dec);
    EXPECT_EQ(NSDecimalNumber(short(-7)), -7_dec);
    static_assert(!std::is_constructible_v<NSDecimalNumber, bool>);
    static_assert(!std::is_convertible_v<double, NSDecimalNumber>);
}

TEST(DecimalConversions, VariantsBecomeNumbersAndTexts)
{
    EXPECT_EQ(variant(u"12.50").toString(), u"12.5"_s);
    EXPECT_EQ(variant(u"12.5").toDouble(), 12.5);
    EXPECT_EQ(variant(u"2.5").toInt(), 3);
    EXPECT_EQ(variant(u"-2.5").toLongLong(), -3);
    EXPECT_EQ(variant(u"18446744073709551615").toULongLong(), std::numeric_limits<quint64>::max());
    EXPECT_EQ(variant(u"9223372036854775807.4").toLongLong(), std::numeric_limits<qint64>::max());
    EXPECT_EQ(as<float>(u"0.5"), 0.5F);
    EXPECT_EQ(as<bool>(u"0"), false);
    EXPECT_EQ(as<bool>(u"0.1"), true);
}

TEST(DecimalConversions, WhatDoesNotFitFails)
{
    EXPECT_EQ(as<int>(u"2147483647.4"), std::numeric_limits<int>::max());
    EXPECT_EQ(as<int>(u"2147483647.5"), std::nullopt);
    EXPECT_EQ(as<uint>(u"-0.4"), 0U);
    EXPECT_EQ(as<uint>(u"-1"), std::nullopt);
    EXPECT_EQ(as<qlonglong>(u"9223372036854775808"), std::nullopt);
    EXPECT_EQ(as<qulonglong>(u"18446744073709551616"), std::nullopt);
    EXPECT_EQ(as<signed char>(u"-128"), qint8(-128));
    EXPECT_EQ(as<double>(u"abc"), std::nullopt);
    EXPECT_EQ(as<float>(u"1e100"), std::nullopt);
    EXPECT_EQ(as<float>(u"-1e100"), std::nullopt);
    EXPECT_EQ(as<double>(u"1e100"), 1e100);
    EXPECT_EQ(as<bool>(u"abc"), std::nullopt);
    EXPECT_EQ(as<qlonglong>(u"abc"), std::nullopt);
    EXPECT_EQ(as<QString>(u"abc"), u"NaN"_s);
}

TEST(DecimalConversions, NumbersAndTextsBecomeDecimals)
{
    EXPECT_EQ(QVariant(12.5).value<NSDecimalNumber>(), 12.5_dec);
    EXPECT_EQ(QVariant(-7).value<NSDecimalNumber>(), -7_dec);
    EXPECT_EQ(QVariant(std::numeric_limits<quint64>::max()).value<NSDecimalNumber>(),
              18446744073709551615_dec);
    EXPECT_EQ(QVariant(u" 7.25 "_s).value<NSDecimalNumber>(), 7.25_dec);
    EXPECT_EQ(QVariant(u"0.1234567890123456789"_s).value<NSDecimalNumber>(),
              0.1234567890123456789_dec);
    for (const QString &text : {u""_s, u"abc"_s, u"5 EUR"_s, u"1,5"_s, u"nan"_s, u"inf"_s,
                                u"0x10"_s, u"1e999"_s, u"--5"_s, u"1.2.3"_s}) {
        QVariant value(text);
        EXPECT_FALSE(value.convert(QMetaType::fromType<NSDecimalNumber>())) << text.toStdString();
    }
}

TEST(DecimalConversions, EqualNumbersHashAlike)
{
    EXPECT_EQ(qHash(decimal(u"1.50")), qHash(decimal(u"15e-1")));
    EXPECT_NE(qHash(1_dec), qHash(-1_dec));
    EXPECT_NE(qHash(1_dec, 1), qHash(1_dec, 2));
    EXPECT_EQ(QSet<NSDecimalNumber>({1_dec, 1.0_dec, 2_dec}).size(), 2);
    EXPECT_EQ((std::unordered_set<NSDecimalNumber>{1_dec, 1.0_dec, 2_dec}).size(), 2U);
}

TEST(DecimalConversions, ArePrinted)
{
    QString printed;
    QDebug(&printed) << 12.50_dec << 1;
    EXPECT_EQ(printed.trimmed(), u"12.5 1"_s);
    printed.clear();
    QDebug(&printed) << variant(u"-0.5");
    EXPECT_EQ(printed.trimmed(), u"QVariant(NSDecimalNumber, -0.5)"_s);
}

namespace {
template<typename Value>
QByteArray bytesOf(const Value &value)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << value;
    return bytes;
}
} // namespace

TEST(DecimalConversions, GoThroughStreams)
{
    for (const QString &text : {u"0"_s, u"-12.5"_s, u"1e100"_s, u"abc"_s}) {
        QDataStream stream(bytesOf(decimal(text)));
        NSDecimalNumber read = 1_dec;
        stream >> read;
        EXPECT_EQ(read, decimal(text));
        EXPECT_EQ(stream.status(), QDataStream::Ok);
    }
    QDataStream stream(bytesOf(u"what"_s));
    NSDecimalNumber read;
    stream >> read;
    EXPECT_TRUE(read.isNaN());
    EXPECT_EQ(stream.status(), QDataStream::ReadCorruptData);
}
