// The peers are ICU's own formatters and Qt's locale, ready: one parse of the same text, one format
// of the same number.

#include "Report.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>

#include <QLocale>

#include <benchmark/benchmark.h>

#include <unicode/decimfmt.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
constexpr char16_t Plain[] = u"1234.5678";
constexpr char16_t Grouped[] = u"1,234";
constexpr char16_t Rejected[] = u"12abc";
constexpr char16_t Special[] = u"1\u00A0234.5";
constexpr char16_t FullWidth[] = u"\uFF11\uFF12\uFF13\uFF14.\uFF15";
constexpr char16_t OwnMinus[] = u"\u22121234.5678";
constexpr char16_t Exponent[] = u"1.5e3";
constexpr char16_t Cows[] = u"5 cows";

std::unique_ptr<icu::DecimalFormat> readyFormat(const char *locale)
{
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createInstance(icu::Locale(locale), UNUM_DECIMAL, status));
    format->setLenient(true);
    format->setMaximumFractionDigits(111);
    return std::unique_ptr<icu::DecimalFormat>(static_cast<icu::DecimalFormat *>(format.release()));
}

template<const char16_t *Typed>
void peerParse(benchmark::State &state)
{
    const auto format = readyFormat("en_US");
    const icu::UnicodeString text(Typed);
    for (auto _ : state) {
        icu::Formattable number;
        icu::ParsePosition position(0);
        format->parse(text, number, position);
        benchmark::DoNotOptimize(number);
    }
}

template<const char16_t *Typed>
void read(benchmark::State &state)
{
    const KTNumberFormatter formatter;
    const QString text = QString::fromUtf16(Typed);
    for (auto _ : state) {
        QVariant value;
        bool isRead = formatter.getObjectValue(&value, text);
        benchmark::DoNotOptimize(isRead);
    }
}

void peerFormat(benchmark::State &state)
{
    const auto format = readyFormat("en_US");
    format->setMinimumFractionDigits(2);
    format->setMaximumFractionDigits(2);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text;
        format->format(icu::StringPiece("1234567.891"), text, nullptr, status);
        benchmark::DoNotOptimize(text);
    }
}

/// In the setting that only ICU can write.
void peerFormatSignificant(benchmark::State &state)
{
    const auto format = readyFormat("en_US");
    format->setMaximumSignificantDigits(6);
    format->setSignificantDigitsUsed(true);
    for (auto _ : state) {
        UErrorCode status = U_ZERO_ERROR;
        icu::UnicodeString text;
        format->format(icu::StringPiece("1234567.891"), text, nullptr, status);
        benchmark::DoNotOptimize(text);
    }
}

QVariant shownNumber()
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"1234567.891"));
}

template<bool IsArabic>
void show(benchmark::State &state)
{
    KTNumberFormatter formatter;
    if (IsArabic)
        formatter.setLocale(NSLocale(u"ar_EG"_s));
    formatter.setDecimalPlaces(2);
    const QVariant number = shownNumber();
    for (auto _ : state) {
        QString text = formatter.stringForObjectValue(number);
        benchmark::DoNotOptimize(text);
    }
}

/// What only ICU can write: significant digits.
void showWithICU(benchmark::State &state)
{
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    formatter.setMaximumSignificantDigits(6);
    formatter.setUsesSignificantDigits(true);
    const QVariant number = shownNumber();
    for (auto _ : state) {
        QString text = formatter.stringForObjectValue(number);
        benchmark::DoNotOptimize(text);
    }
}

void showPercent(benchmark::State &state)
{
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterPercentStyle);
    formatter.setMaximumFractionDigits(2);
    const QVariant number = shownNumber();
    for (auto _ : state) {
        QString text = formatter.stringForObjectValue(number);
        benchmark::DoNotOptimize(text);
    }
}

void peerFormatPercent(benchmark::State &state)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::NumberFormat> format(
        icu::NumberFormat::createPercentInstance(icu::Locale("en_US"), status));
    format->setMaximumFractionDigits(2);
    for (auto _ : state) {
        icu::UnicodeString text;
        format->format(icu::StringPiece("1234567.891"), text, nullptr, status);
        benchmark::DoNotOptimize(text);
    }
}

void showMoney(benchmark::State &state)
{
    const KTCurrencyFormatter formatter;
    const QVariant number = shownNumber();
    for (auto _ : state) {
        QString text = formatter.stringForObjectValue(number);
        benchmark::DoNotOptimize(text);
    }
}

void showScientific(benchmark::State &state)
{
    NSNumberFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setNumberStyle(NSNumberFormatterScientificStyle);
    const QVariant number = 1234567.891;
    for (auto _ : state) {
        QString text = formatter.stringForObjectValue(number);
        benchmark::DoNotOptimize(text);
    }
}

/// What a hundred tries of currencies come to if the text names none.
void walk(benchmark::State &state)
{
    KTCurrencyFormatter formatter;
    const QString text = QString::fromUtf16(Cows);
    for (auto _ : state)
        benchmark::DoNotOptimize(formatter.adjustForValue(text, nullptr));
}

// --- Qt -----------------------------------------------------------------------------------------

QLocale american()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

void peerQtParse(benchmark::State &state)
{
    const QLocale locale = american();
    const QString text = QString::fromUtf16(Plain);
    for (auto _ : state) {
        bool isRead = false;
        benchmark::DoNotOptimize(locale.toDouble(text, &isRead));
    }
}

void peerQtFormat(benchmark::State &state)
{
    const QLocale locale = american();
    double number = 1234567.891;
    benchmark::DoNotOptimize(number);
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toString(number, 'f', 2));
}

void peerQtScientific(benchmark::State &state)
{
    constexpr int DigitsBehindPoint = 9;
    const QLocale locale = american();
    double number = 1234567.891;
    benchmark::DoNotOptimize(number);
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toString(number, 'E', DigitsBehindPoint));
}

void peerQtCurrency(benchmark::State &state)
{
    const QLocale locale = american();
    double number = 1234567.891;
    benchmark::DoNotOptimize(number);
    for (auto _ : state)
        benchmark::DoNotOptimize(locale.toCurrencyString(number));
}

BENCHMARK(peerQtParse)->Name("Numbers/peer: QLocale::toDouble");
BENCHMARK(peerQtFormat)->Name("Numbers/peer: QLocale::toString");
BENCHMARK(peerQtScientific)->Name("Numbers/peer: QLocale::toString, power of ten");
BENCHMARK(showScientific)->Name("Numbers/show power of ten");
BENCHMARK(peerQtCurrency)->Name("Numbers/peer: QLocale::toCurrencyString");
BENCHMARK(peerParse<Plain>)->Name("Numbers/peer: ICU parse");
BENCHMARK(peerParse<Special>)->Name("Numbers/peer: ICU parse of special blanks");
BENCHMARK(peerFormat)->Name("Numbers/peer: ICU format");
BENCHMARK(peerFormatSignificant)->Name("Numbers/peer: ICU format, significant digits");
BENCHMARK(read<Plain>)->Name("Numbers/read, first pass");
BENCHMARK(read<Grouped>)->Name("Numbers/read, third pass");
BENCHMARK(read<Rejected>)->Name("Numbers/read, refused");
BENCHMARK(read<Special>)->Name("Numbers/read, special blanks");
BENCHMARK(read<FullWidth>)->Name("Numbers/read, full-width digits");
BENCHMARK(read<OwnMinus>)->Name("Numbers/read, U+2212");
BENCHMARK(read<Exponent>)->Name("Numbers/read with ICU");
BENCHMARK(show<false>)->Name("Numbers/show, ASCII digits");
BENCHMARK(show<true>)->Name("Numbers/show, Arabic digits");
BENCHMARK(showPercent)->Name("Numbers/show percent");
BENCHMARK(peerFormatPercent)->Name("Numbers/peer: ICU format, percent");
BENCHMARK(showMoney)->Name("Numbers/show money");
BENCHMARK(showWithICU)->Name("Numbers/show with ICU");
BENCHMARK(walk)->Name("Numbers/currency walk without a hit");

constexpr char Parse[] = "Numbers/peer: ICU parse";
constexpr char Format[] = "Numbers/peer: ICU format";
const bool isRegistered =
    compareWith("Numbers/read, first pass", Parse, 0.25) &&
    compareWith("Numbers/read, first pass", "Numbers/peer: QLocale::toDouble", 1) &&
    compareWith("Numbers/read, third pass", Parse, 1) &&
    compareWith("Numbers/read, refused", Parse, 1) &&
    compareWith("Numbers/read, special blanks", "Numbers/peer: ICU parse of special blanks",
                0.45) &&
    compareWith("Numbers/read, full-width digits", Parse, 0.5) &&
    compareWith("Numbers/read, U+2212", Parse, 0.5) &&
    compareWith("Numbers/read with ICU", Parse, 3) &&
    compareWith("Numbers/show, ASCII digits", Format, 0.15) &&
    compareWith("Numbers/show, ASCII digits", "Numbers/peer: QLocale::toString", 0.6) &&
    compareWith("Numbers/show, Arabic digits", Format, 1.3) &&
    compareWith("Numbers/show percent", "Numbers/peer: ICU format, percent", 0.15) &&
    compareWith("Numbers/show percent", "Numbers/peer: QLocale::toString", 0.5) &&
    compareWith("Numbers/show power of ten", "Numbers/peer: QLocale::toString, power of ten",
                0.5) &&
    compareWith("Numbers/show money", Format, 1.3) &&
    compareWith("Numbers/show money", "Numbers/peer: QLocale::toCurrencyString", 1) &&
    compareWith("Numbers/show with ICU", "Numbers/peer: ICU format, significant digits", 1.3) &&
    compareWith("Numbers/currency walk without a hit", Parse, 1);
} // namespace
