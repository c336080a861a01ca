// Decimals beside schoolbook arithmetic on digits, which is exact and rounds only at the end.

#include <KTUtility/NSDecimalNumber>

#include "support/TestSupport.h"

#include <algorithm>
#include <functional>
#include <random>
#include <string>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// A whole number without sign: its decimal digits, the highest first, none for zero.
using Digits = std::string;

constexpr int MaximumDigits = 38;
constexpr int LowestExponent = -128;
constexpr int HighestExponent = 127;

Digits stripped(const Digits &digits)
{
    const size_t first = digits.find_first_not_of('0');
    return first == Digits::npos ? Digits() : digits.substr(first);
}

int compared(const Digits &left, const Digits &right)
{
    if (left.size() != right.size())
        return left.size() < right.size() ? -1 : 1;
    return left.compare(right);
}

/// The digit at a place, counted from the lowest.
int digitAt(const Digits &digits, size_t place)
{
    return place < digits.size() ? digits[digits.size() - 1 - place] - '0' : 0;
}

Digits added(const Digits &left, const Digits &right)
{
    Digits sum;
    int carry = 0;
    for (size_t place = 0; place < std::max(left.size(), right.size()) + 1; ++place) {
        carry += digitAt(left, place) + digitAt(right, place);
        sum += char('0' + carry % 10);
        carry /= 10;
    }
    std::reverse(sum.begin(), sum.end());
    return stripped(sum);
}

/// \a right is not above \a left.
Digits subtracted(const Digits &left, const Digits &right)
{
    Digits difference;
    int borrow = 0;
    for (size_t place = 0; place < left.size(); ++place) {
        const int digit = digitAt(left, place) - digitAt(right, place) - borrow;
        borrow = digit < 0;
        difference += char('0' + digit + 10 * borrow);
    }
    std::reverse(difference.begin(), difference.end());
    return stripped(difference);
}

Digits multiplied(const Digits &left, const Digits &right)
{
    Digits product;
    int carry = 0;
    for (size_t place = 0; place < left.size() + right.size(); ++place) {
        for (size_t other = 0; other <= place; ++other)
            carry += digitAt(left, other) * digitAt(right, place - other);
        product += char('0' + carry % 10);
        carry /= 10;
    }
    std::reverse(product.begin(), product.end());
    return stripped(product);
}

/// Long division; \a hasRest says whether it comes out even.
Digits divided(const Digits &left, const Digits &right, bool *hasRest)
{
    Digits quotient;
    Digits rest;
    for (const char digit : left) {
        rest = stripped(rest + digit);
        char count = '0';
        for (; compared(rest, right) >= 0; ++count)
            rest = subtracted(rest, right);
        quotient += count;
    }
    *hasRest = !rest.empty();
    return stripped(quotient);
}

/// A number before it is rounded: digits × 10^exponent, and something less than one of it if it has
/// a rest.
struct Exact
{
    bool isNegative = false;
    Digits digits;
    int exponent = 0;
    bool hasRest = false;

    QString text() const
    {
        const std::string magnitude =
            (digits.empty() ? "0" : digits) + 'e' + std::to_string(exponent);
        return QString::fromStdString((isNegative ? "-" : "") + magnitude);
    }
};

/// Whether a magnitude grows by one when \a lost (with a rest behind it or not) is dropped.
bool growsBy(const Digits &lost, bool hasRest, bool isOdd, bool isNegative, NSRoundingMode mode)
{
    const bool isZero = stripped(lost).empty() && !hasRest;
    if (isZero || mode == NSRoundDown || mode == NSRoundUp)
        return !isZero && (mode == NSRoundDown) == isNegative;
    if (lost.empty() || lost[0] < '5')
        return false;
    const bool isHalf = lost[0] == '5' && stripped(lost.substr(1)).empty() && !hasRest;
    return !isHalf || mode == NSRoundPlain || isOdd;
}

/// Drops what stands below 10^lowest, and what is more than 38 digits.
Exact rounded(Exact value, int lowest, NSRoundingMode mode)
{
    const int surplus = std::max(int(value.digits.size()) - MaximumDigits, lowest - value.exponent);
    const auto count = size_t(std::max(surplus, 0));
    if (value.digits.size() < count)
        value.digits.insert(0, count - value.digits.size(), '0');
    const Digits lost = value.digits.substr(value.digits.size() - count);
    value.digits.erase(value.digits.size() - count);
    value.exponent += int(count);
    if (growsBy(lost, value.hasRest, digitAt(value.digits, 0) % 2 == 1, value.isNegative, mode))
        value.digits = added(value.digits, "1");
    return value;
}

/// The description of the decimal; "NaN" if there is none of this size.
QString described(Exact value, NSRoundingMode mode)
{
    const bool isZero = value.digits.empty() && !value.hasRest;
    value = rounded(value, LowestExponent, mode);
    while (value.exponent > HighestExponent && value.digits.size() < MaximumDigits) {
        value.digits += '0';
        --value.exponent;
    }
    while (value.digits.ends_with('0') && value.exponent < HighestExponent) {
        value.digits.pop_back();
        ++value.exponent;
    }
    if (isZero)
        return u"0"_s;
    const bool fits = value.exponent <= HighestExponent && value.digits.size() <= MaximumDigits;
    if (value.digits.empty() || !fits)
        return u"NaN"_s;
    QString text = QString::fromStdString(value.digits);
    if (value.exponent >= 0) {
        text += QString(value.exponent, u'0');
    } else {
        text = text.rightJustified(1 - value.exponent, u'0');
        text.insert(text.size() + value.exponent, u'.');
    }
    return value.isNegative ? QString(u'-' + text) : text;
}

Exact sumOf(const Exact &left, const Exact &right)
{
    const int lowest = std::min(left.exponent, right.exponent);
    const auto padded = [lowest](const Exact &value) {
        return value.digits.empty() ? Digits()
                                    : value.digits + Digits(size_t(value.exponent - lowest), '0');
    };
    const Digits a = padded(left);
    const Digits b = padded(right);
    if (left.isNegative == right.isNegative)
        return {left.isNegative, added(a, b), lowest};
    if (compared(a, b) >= 0)
        return {left.isNegative, subtracted(a, b), lowest};
    return {right.isNegative, subtracted(b, a), lowest};
}

Exact productOf(const Exact &left, const Exact &right)
{
    return {left.isNegative != right.isNegative, multiplied(left.digits, right.digits),
            left.exponent + right.exponent};
}

Exact quotientOf(const Exact &left, const Exact &right)
{
    constexpr int Places = 80;
    Exact result{left.isNegative != right.isNegative, Digits(),
                 left.exponent - right.exponent - Places};
    result.digits =
        divided(stripped(left.digits + Digits(Places, '0')), right.digits, &result.hasRest);
    return result;
}

/// Numbers that are hard to round: long runs of one digit, ends of five, lengths of 1 to 38.
class Numbers
{
public:
    Exact next(int exponentsAround)
    {
        Digits digits;
        const size_t length = size_t(upTo(MaximumDigits)) + 1;
        while (digits.size() < length)
            digits += Digits(size_t(upTo(12)) + 1, "0123456789955000"[upTo(16)]);
        digits = stripped(digits.substr(0, length));
        if (upTo(4) == 0)
            digits = digits.substr(0, 1); // a power of ten is surrounded by runs of nine
        const int exponent =
            std::clamp(exponentsAround + upTo(12) - 6, LowestExponent, HighestExponent);
        return {upTo(2) == 1, digits, exponent};
    }

    /// From 0, below \a end.
    int upTo(int end) { return int(_random() % unsigned(end)); }

private:
    std::mt19937 _random{20080220};
};

NSDecimalNumber decimalOf(const Exact &value)
{
    return NSDecimalNumber::decimalNumberWithString(value.text());
}

constexpr NSRoundingMode Modes[] = {NSRoundPlain, NSRoundDown, NSRoundUp, NSRoundBankers};

using Operation = NSDecimalNumber (NSDecimalNumber::*)(const NSDecimalNumber &,
                                                       const NSDecimalNumberBehaviors *) const;

/// Compares one operation on pairs whose exponents lie at all distances from each other.
void compareWithSchoolbook(Operation operation,
                           const std::function<Exact(const Exact &, const Exact &)> &schoolbook,
                           int rounds = 20'000)
{
    Numbers numbers;
    for (int round = 0; round < rounds; ++round) {
        const Exact left = numbers.next(numbers.upTo(256) - 128);
        const Exact right = numbers.next(left.exponent + numbers.upTo(180) - 90);
        const NSRoundingMode mode = Modes[round % 4];
        const NSDecimalNumberHandler behavior(mode, NSDecimalNoScale, false, false, false, false);
        const bool isByZero =
            right.digits.empty() && operation == &NSDecimalNumber::decimalNumberByDividingBy;
        const QString expected = isByZero ? u"NaN"_s : described(schoolbook(left, right), mode);
        ASSERT_EQ((decimalOf(left).*operation)(decimalOf(right), &behavior).description(), expected)
            << qPrintable(left.text()) << " and " << qPrintable(right.text()) << ", mode " << mode;
    }
}
} // namespace

TEST(DecimalArithmetic, AddsAsOnPaper)
{
    compareWithSchoolbook(&NSDecimalNumber::decimalNumberByAdding, sumOf);
}

TEST(DecimalArithmetic, SubtractsAsOnPaper)
{
    compareWithSchoolbook(&NSDecimalNumber::decimalNumberBySubtracting,
                          [](const Exact &left, Exact right) {
                              right.isNegative = !right.isNegative;
                              return sumOf(left, right);
                          });
}

TEST(DecimalArithmetic, MultipliesAsOnPaper)
{
    compareWithSchoolbook(&NSDecimalNumber::decimalNumberByMultiplyingBy, productOf);
}

TEST(DecimalArithmetic, DividesAsOnPaper)
{
    compareWithSchoolbook(&NSDecimalNumber::decimalNumberByDividingBy, quotientOf, 5'000);
}

TEST(DecimalArithmetic, RoundsAsOnPaper)
{
    Numbers numbers;
    for (int round = 0; round < 20'000; ++round) {
        const Exact value = numbers.next(-MaximumDigits / 2);
        const int scale = numbers.upTo(60) - 20;
        const NSRoundingMode mode = Modes[round % 4];
        const NSDecimalNumberHandler behavior(mode, short(scale), false, false, false, false);
        Exact expected = rounded(value, -scale, mode);
        expected.hasRest = false;
        ASSERT_EQ(decimalOf(value).decimalNumberByRoundingAccordingToBehavior(&behavior),
                  decimalOf(expected))
            << qPrintable(value.text()) << " to " << scale << ", mode " << mode;
    }
}

TEST(DecimalArithmetic, ComparesAsOnPaper)
{
    Numbers numbers;
    for (int round = 0; round < 20'000; ++round) {
        const Exact left = numbers.next(0);
        Exact right = round % 3 == 0 ? left : numbers.next(0);
        if (round % 6 == 0 && right.digits.size() < MaximumDigits)
            right = {right.isNegative, right.digits + "0", right.exponent - 1};
        Exact negative = right;
        negative.isNegative = !right.isNegative;
        const Exact difference = sumOf(left, negative);
        const int sign = difference.digits.empty() ? 0 : difference.isNegative ? -1 : 1;
        ASSERT_EQ(decimalOf(left) <=> decimalOf(right), sign <=> 0)
            << qPrintable(left.text()) << " and " << qPrintable(right.text());
    }
}

TEST(DecimalArithmetic, SubtractsLongNumbersFromMuchLargerOnes)
{
    const auto decimal = [](QStringView text) {
        return NSDecimalNumber::decimalNumberWithString(text);
    };
    const NSDecimalNumber nines = decimal(u"99999999999999999999999999999999999999");
    EXPECT_EQ(decimal(u"1e76").decimalNumberBySubtracting(nines),
              decimal(u"99999999999999999999999999999999999999e38"));
    EXPECT_EQ(decimal(u"1e77").decimalNumberBySubtracting(nines), decimal(u"1e77"));
}
