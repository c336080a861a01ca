// Phone numbers beside libphonenumber: what it takes to show a number in the layout of its country,
// and what a field does while somebody types.

#include "Report.h"

#include <KTUtility/KTPhoneNumberFormatter>

#include <benchmark/benchmark.h>

#include <memory>
#include <phonenumbers/asyoutypeformatter.h>
#include <phonenumbers/phonenumberutil.h>
#include <string>

using namespace Qt::StringLiterals;

namespace {
using i18n::phonenumbers::AsYouTypeFormatter;
using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

const std::string typed = "415.555.1234";

void peerParseAndFormat(benchmark::State &state)
{
    const PhoneNumberUtil *const util = PhoneNumberUtil::GetInstance();
    for (auto _ : state) {
        PhoneNumber number;
        std::string text;
        util->Parse(typed, "US", &number);
        util->Format(number, PhoneNumberUtil::NATIONAL, &text);
        benchmark::DoNotOptimize(text);
    }
}

void peerAsYouType(benchmark::State &state)
{
    const std::unique_ptr<AsYouTypeFormatter> formatter(
        PhoneNumberUtil::GetInstance()->GetAsYouTypeFormatter("US"));
    for (auto _ : state) {
        std::string text;
        formatter->Clear();
        for (const char digit : typed) {
            if (digit != '.')
                formatter->InputDigit(char32_t(digit), &text);
        }
        benchmark::DoNotOptimize(text);
    }
}

template<int Index>
void show(benchmark::State &state)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(Index);
    const QVariant number = QString::fromStdString(typed);
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.stringForObjectValue(number));
}

/// A country with thousands of patterns.
void showOfMany(benchmark::State &state)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(2);
    const QVariant number = u"06221/123456"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.stringForObjectValue(number));
}

/// A number that none of the patterns of a country fits.
void showUnfit(benchmark::State &state)
{
    KTPhoneNumberFormatter formatter;
    formatter.setFormatIndex(0);
    const QVariant number = u"555-1234 ask for Ann"_s;
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.stringForObjectValue(number));
}

BENCHMARK(peerParseAndFormat)->Name("Phones/peer: libphonenumber, parse and format");
BENCHMARK(peerAsYouType)->Name("Phones/peer: libphonenumber, as you type");
BENCHMARK(show<0>)->Name("Phones/show, North America");
BENCHMARK(showOfMany)->Name("Phones/show, Germany");
BENCHMARK(showUnfit)->Name("Phones/show, fits no pattern");

constexpr char Show[] = "Phones/show, North America";
constexpr char Peer[] = "Phones/peer: libphonenumber, parse and format";
const bool isRegistered = compareWith(Show, Peer, 1) &&
                          compareWith(Show, "Phones/peer: libphonenumber, as you type", 1) &&
                          compareWith("Phones/show, Germany", Peer, 1) &&
                          compareWith("Phones/show, fits no pattern", Peer, 1);
} // namespace
