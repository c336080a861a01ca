// Lengths of time and numbers of seconds.

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/Platform/Values/ChronoConversions_p.h>

#include "support/TestSupport.h"

#include <chrono>

using namespace KTLiterals;
using namespace std::chrono_literals;

namespace {
template<typename To, typename From>
std::optional<To> as(const From &from)
{
    QVariant value = QVariant::fromValue(from);
    if (!value.convert(QMetaType::fromType<To>()))
        return std::nullopt;
    return value.value<To>();
}
} // namespace

TEST(ChronoConversions, LengthsOfTimeAreSeconds)
{
    EXPECT_EQ(as<NSDecimalNumber>(90s), 90_dec);
    EXPECT_EQ(as<NSDecimalNumber>(90min), 5400_dec);
    EXPECT_EQ(as<NSDecimalNumber>(-2h), -7200_dec);
    EXPECT_EQ(as<NSDecimalNumber>(1ms), 0.001_dec);
    EXPECT_EQ(as<NSDecimalNumber>(std::chrono::nanoseconds(1)), 0.000000001_dec);
    EXPECT_EQ(as<double>(1500ms), 1.5);
    EXPECT_EQ(as<int>(2min), 120);
    EXPECT_EQ(as<qlonglong>(1h), 3600);
}

TEST(ChronoConversions, SecondsAreLengthsOfTime)
{
    EXPECT_EQ(as<std::chrono::seconds>(5400_dec), 5400s);
    EXPECT_EQ(as<std::chrono::minutes>(5400_dec), 90min);
    EXPECT_EQ(as<std::chrono::milliseconds>(1.5), 1500ms);
    EXPECT_EQ(as<std::chrono::hours>(7200), 2h);
    EXPECT_EQ(as<std::chrono::nanoseconds>(0.000000001_dec), std::chrono::nanoseconds(1));
}

TEST(ChronoConversions, FractionsAreCut)
{
    EXPECT_EQ(as<std::chrono::seconds>(1.9_dec), 1s);
    EXPECT_EQ(as<std::chrono::seconds>(-1.9_dec), -1s);
    EXPECT_EQ(as<std::chrono::minutes>(119), 1min);
}

TEST(ChronoConversions, WhatDoesNotFitFails)
{
    EXPECT_EQ(as<std::chrono::nanoseconds>(1e12_dec), std::nullopt);
    EXPECT_EQ(as<std::chrono::seconds>(NSDecimalNumber::notANumber()), std::nullopt);
    EXPECT_EQ(as<int>(std::chrono::hours(10'000'000)), std::nullopt);
}

TEST(ChronoConversions, AreExactWhateverTheThreadRounds)
{
    const NSDecimalNumberHandler cents(NSRoundPlain, 2, true, true, true, true);
    NSDecimalNumber::setDefaultBehavior(&cents);
    EXPECT_EQ(as<NSDecimalNumber>(5ms), 0.005_dec);
    EXPECT_EQ(as<std::chrono::milliseconds>(2_dec), 2000ms);
    EXPECT_EQ(as<std::chrono::milliseconds>(0.0051_dec), 5ms);
    EXPECT_EQ(as<std::chrono::hours>(1e100_dec), std::nullopt);
    NSDecimalNumber::setDefaultBehavior(nullptr);
}

TEST(ChronoConversions, KnowWhatIsALengthOfTime)
{
    EXPECT_TRUE(KTPrivate::isLengthOfTime(QVariant::fromValue(std::chrono::minutes(2))));
    EXPECT_TRUE(KTPrivate::isLengthOfTime(QVariant::fromValue(std::chrono::nanoseconds(2))));
    EXPECT_FALSE(KTPrivate::isLengthOfTime(2));
    EXPECT_FALSE(KTPrivate::isLengthOfTime(QVariant()));
}
