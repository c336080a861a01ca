// Decimals of money and of full length. The peers are what the compiler and Qt offer for about the
// same work: a division of 128 bits, reading a double from a text and writing one.

#include "Report.h"

#include <KTUtility/NSDecimalNumber>

#include <benchmark/benchmark.h>

namespace {
__extension__ using Wide = unsigned __int128;

constexpr char16_t Money[] = u"1234.56";
constexpr char16_t Long[] = u"-123456789012.345678901234567";
constexpr char16_t Near[] = u"-123456789012.3456789012345";

NSDecimalNumber decimal(const char16_t *text)
{
    return NSDecimalNumber::decimalNumberWithString(text);
}

void peerDivision(benchmark::State &state)
{
    Wide value = ~Wide(0);
    quint64 divisor = 10'000'000'000'000'000'000ULL;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        benchmark::DoNotOptimize(divisor);
        Wide quotient = value / divisor;
        benchmark::DoNotOptimize(quotient);
    }
}

template<const char16_t *Text>
void peerRead(benchmark::State &state)
{
    const QString text = QString::fromUtf16(Text);
    for (auto _ : state)
        benchmark::DoNotOptimize(text.toDouble());
}

template<const char16_t *Text>
void peerWrite(benchmark::State &state)
{
    const double value = QString::fromUtf16(Text).toDouble();
    for (auto _ : state)
        benchmark::DoNotOptimize(QString::number(value, 'g', 17));
}

template<typename Operation>
void compute(benchmark::State &state, const Operation &operation)
{
    NSDecimalNumber left = decimal(Long);
    NSDecimalNumber right = decimal(Money);
    for (auto _ : state) {
        benchmark::DoNotOptimize(left);
        benchmark::DoNotOptimize(right);
        benchmark::DoNotOptimize(operation(left, right));
    }
}

using Decimal = const NSDecimalNumber &;

void add(benchmark::State &state)
{
    compute(state, [](Decimal left, Decimal right) { return left.decimalNumberByAdding(right); });
}

void multiply(benchmark::State &state)
{
    compute(state,
            [](Decimal left, Decimal right) { return left.decimalNumberByMultiplyingBy(right); });
}

void divide(benchmark::State &state)
{
    compute(state,
            [](Decimal left, Decimal right) { return left.decimalNumberByDividingBy(right); });
}

void roundToCents(benchmark::State &state)
{
    static const NSDecimalNumberHandler cents(NSRoundBankers, 2, false, true, true, true);
    compute(state, [](Decimal left, Decimal) {
        return left.decimalNumberByRoundingAccordingToBehavior(&cents);
    });
}

void compare(benchmark::State &state)
{
    const NSDecimalNumber near = decimal(Near);
    compute(state, [&](Decimal left, Decimal) { return left < near; });
}

template<const char16_t *Text>
void read(benchmark::State &state)
{
    const QString text = QString::fromUtf16(Text);
    for (auto _ : state)
        benchmark::DoNotOptimize(NSDecimalNumber::decimalNumberWithString(text));
}

template<const char16_t *Text>
void write(benchmark::State &state)
{
    const NSDecimalNumber number = decimal(Text);
    for (auto _ : state)
        benchmark::DoNotOptimize(number.description());
}

BENCHMARK(peerDivision)->Name("Decimals/peer: 128-bit division");
BENCHMARK(peerRead<Money>)->Name("Decimals/peer: read a double");
BENCHMARK(peerRead<Long>)->Name("Decimals/peer: read a long double text");
BENCHMARK(peerWrite<Long>)->Name("Decimals/peer: write a double");
BENCHMARK(add)->Name("Decimals/add");
BENCHMARK(multiply)->Name("Decimals/multiply");
BENCHMARK(divide)->Name("Decimals/divide");
BENCHMARK(roundToCents)->Name("Decimals/round to cents");
BENCHMARK(compare)->Name("Decimals/compare");
BENCHMARK(read<Money>)->Name("Decimals/read, short");
BENCHMARK(read<Long>)->Name("Decimals/read, 28 digits");
BENCHMARK(write<Money>)->Name("Decimals/write, short");
BENCHMARK(write<Long>)->Name("Decimals/write, 28 digits");

constexpr char Division[] = "Decimals/peer: 128-bit division";
constexpr char LongText[] = "Decimals/peer: read a long double text";
constexpr char Writing[] = "Decimals/peer: write a double";
const bool isRegistered = compareWith("Decimals/add", Division, 6) &&
                          compareWith("Decimals/multiply", Division, 6) &&
                          compareWith("Decimals/divide", Division, 25) &&
                          compareWith("Decimals/round to cents", Division, 12) &&
                          compareWith("Decimals/compare", Division, 2) &&
                          compareWith("Decimals/read, short", LongText, 1) &&
                          compareWith("Decimals/read, 28 digits", LongText, 1) &&
                          compareWith("Decimals/write, short", Writing, 1) &&
                          compareWith("Decimals/write, 28 digits", Writing, 1);
} // namespace
