#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSException>
#include <KTUtility/NSLocale>
#include <KTUtility/NSObject>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
NSDecimalNumber decimal(QStringView text)
{
    return NSDecimalNumber::decimalNumberWithString(text);
}

NSRoundingMode modeNamed(const QString &name)
{
    static const QHash<QString, NSRoundingMode> modes{{u"plain"_s, NSRoundPlain},
                                                      {u"down"_s, NSRoundDown},
                                                      {u"up"_s, NSRoundUp},
                                                      {u"bankers"_s, NSRoundBankers}};
    EXPECT_TRUE(modes.contains(name));
    return modes.value(name);
}

/// A behaviour that never raises.
NSDecimalNumberHandler quiet(NSRoundingMode mode, short scale = NSDecimalNoScale)
{
    return {mode, scale, false, false, false, false};
}

NSDecimalNumber rounded(const NSDecimalNumber &number, NSRoundingMode mode, short scale)
{
    const NSDecimalNumberHandler behavior = quiet(mode, scale);
    return number.decimalNumberByRoundingAccordingToBehavior(&behavior);
}

NSDecimalNumber computed(const QString &operation, const NSDecimalNumber &left,
                         const QString &right, const NSDecimalNumberBehaviors &behavior)
{
    if (operation == u"add")
        return left.decimalNumberByAdding(decimal(right), &behavior);
    if (operation == u"subtract")
        return left.decimalNumberBySubtracting(decimal(right), &behavior);
    if (operation == u"multiply")
        return left.decimalNumberByMultiplyingBy(decimal(right), &behavior);
    if (operation == u"divide")
        return left.decimalNumberByDividingBy(decimal(right), &behavior);
    if (operation == u"multiplyByPowerOf10")
        return left.decimalNumberByMultiplyingByPowerOf10(short(right.toInt()), &behavior);
    EXPECT_EQ(operation, u"power");
    return left.decimalNumberByRaisingToPower(right.toUInt(), &behavior);
}

QString argumentOf(const QJsonValue &value)
{
    return value.isString() ? value.toString() : QString::number(value.toInt());
}
} // namespace

TEST(NSDecimalNumber, RunsItsExample)
{
    const auto price = decimal(u"12.50");
    EXPECT_EQ(price.description(), u"12.5");
    EXPECT_TRUE(price == decimal(u"12.5"));
    EXPECT_TRUE(decimal(u"abc").isNaN());
    const NSDecimalNumberHandler cents(NSRoundBankers, 2, false, true, true, true);
    EXPECT_EQ(price.decimalNumberByDividingBy(NSDecimalNumber(7), &cents).description(), u"1.79");
}

TEST(NSDecimalNumber, ComputesAsTheTableSays)
{
    const QStringList operations{u"add"_s,    u"subtract"_s, u"multiply"_s,
                                 u"divide"_s, u"power"_s,    u"multiplyByPowerOf10"_s};
    const NSDecimalNumberHandler behavior = quiet(NSRoundPlain);
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/decimal.jsonl"_s)) {
        const QString operation = row[u"op"].toString();
        const QJsonArray arguments = row[u"args"].toArray();
        const bool has39Digits = arguments[0].toString().size() == 39;
        if (!operations.contains(operation) || has39Digits)
            continue;
        const NSDecimalNumber result = computed(operation, decimal(arguments[0].toString()),
                                                argumentOf(arguments[1]), behavior);
        const QString expected = row[u"expected"].toString();
        EXPECT_EQ(result.description(), expected == u"error" ? u"NaN"_s : expected)
            << qPrintable(operation) << ' ' << qPrintable(arguments[0].toString());
        ++rows;
    }
    EXPECT_EQ(rows, 39);
}

TEST(NSDecimalNumber, ComputesAsAnotherImplementationDoes)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/decimal_arithmetic.jsonl"_s)) {
        const QString operation = row[u"op"].toString();
        const NSRoundingMode mode = modeNamed(row[u"mode"].toString());
        const NSDecimalNumber left = decimal(row[u"left"].toString());
        const QString right = row[u"right"].toString();
        const NSDecimalNumber result = operation == u"round"
                                           ? rounded(left, mode, short(right.toInt()))
                                           : computed(operation, left, right, quiet(mode));
        ASSERT_EQ(result.description(), row[u"expected"].toString())
            << qPrintable(operation) << ' ' << qPrintable(left.description()) << ' '
            << qPrintable(right) << ' ' << qPrintable(row[u"mode"].toString());
        ++rows;
    }
    EXPECT_EQ(rows, 2400);
}

TEST(NSDecimalNumber, RoundsAsTheTableSays)
{
    int rows = 0;
    for (const QJsonObject &row : rowsOf(u"platform/decimal.jsonl"_s)) {
        if (row[u"op"].toString() != u"round")
            continue;
        const QJsonArray arguments = row[u"args"].toArray();
        EXPECT_EQ(rounded(decimal(arguments[0].toString()), modeNamed(arguments[2].toString()),
                          short(arguments[1].toInt()))
                      .description(),
                  row[u"expected"].toString());
        ++rows;
    }
    EXPECT_EQ(rows, 10);
    EXPECT_EQ(rounded(decimal(u"-0.5"), NSRoundDown, 0).description(), u"-1");
    EXPECT_EQ(rounded(decimal(u"-2.5"), NSRoundUp, 0).description(), u"-2");
    EXPECT_EQ(rounded(decimal(u"0.001"), NSRoundUp, 0).description(), u"1");
    EXPECT_EQ(rounded(decimal(u"0.4"), NSRoundDown, 0).description(), u"0");
    EXPECT_EQ(rounded(decimal(u"1250"), NSRoundBankers, -2).description(), u"1200");
    EXPECT_EQ(rounded(decimal(u"49"), NSRoundPlain, -2).description(), u"0");
    EXPECT_EQ(rounded(decimal(u"1.23"), NSRoundPlain, 300).description(), u"1.23");
}

TEST(NSDecimalNumber, IsExactToThirtyEightDigits)
{
    const NSDecimalNumber nines = decimal(u"99999999999999999999999999999999999999");
    const NSDecimalNumberHandler behavior = quiet(NSRoundPlain);
    EXPECT_EQ(nines.decimalNumberByAdding(decimal(u"0.4"), &behavior), nines);
    EXPECT_EQ(nines.decimalNumberByAdding(decimal(u"0.5"), &behavior), decimal(u"1e38"));
    EXPECT_EQ(decimal(u"1e100").decimalNumberBySubtracting(decimal(u"1e-100"), &behavior),
              decimal(u"1e100"));
    const NSDecimalNumberHandler down = quiet(NSRoundDown);
    EXPECT_EQ(decimal(u"1e100").decimalNumberBySubtracting(decimal(u"1e-100"), &down),
              decimal(u"99999999999999999999999999999999999999e62"));
    EXPECT_EQ(decimal(u"1").decimalNumberByDividingBy(decimal(u"3"), &behavior).description(),
              u"0.33333333333333333333333333333333333333");
}

TEST(NSDecimalNumber, RaisesWhatItCannotDo)
{
    const NSDecimalNumber large = NSDecimalNumber::maximumDecimalNumber();
    EXPECT_RAISES(large.decimalNumberByMultiplyingBy(large), NSDecimalNumberOverflowException,
                  u"decimalNumberByMultiplyingBy: the result is too large for a decimal number");
    const NSDecimalNumber small = decimal(u"1e-128");
    EXPECT_THROW(small.decimalNumberByMultiplyingBy(decimal(u"0.1")), NSException);
    EXPECT_THROW(large.decimalNumberByDividingBy(NSDecimalNumber()), NSException);
    EXPECT_EQ(decimal(u"1").decimalNumberByDividingBy(decimal(u"3")).isNaN(), false);
    const NSDecimalNumberHandler exact(NSRoundPlain, NSDecimalNoScale, true, true, true, true);
    EXPECT_THROW(decimal(u"1").decimalNumberByDividingBy(decimal(u"3"), &exact), NSException);
    EXPECT_EQ(decimal(u"1").decimalNumberByDividingBy(decimal(u"4"), &exact), decimal(u"0.25"));
    const NSDecimalNumberHandler exactCents(NSRoundPlain, 1, true, true, true, true);
    EXPECT_EQ(decimal(u"1").decimalNumberByDividingBy(decimal(u"4"), &exactCents),
              decimal(u"0.3")); // what the scale drops is no error
    EXPECT_EQ(decimal(u"0.25").decimalNumberByRoundingAccordingToBehavior(&exactCents),
              decimal(u"0.3"));
    EXPECT_RAISES(decimal(u"1").decimalNumberByDividingBy(decimal(u"3"), &exactCents),
                  NSDecimalNumberExactnessException,
                  u"decimalNumberByDividingBy: the result has more digits than a decimal number "
                  u"can hold");
    const NSDecimalNumberHandler behavior = quiet(NSRoundPlain);
    EXPECT_TRUE(large.decimalNumberByDividingBy(NSDecimalNumber(), &behavior).isNaN());
    EXPECT_TRUE(large.decimalNumberByMultiplyingByPowerOf10(1, &behavior).isNaN());
    EXPECT_TRUE(small.decimalNumberByMultiplyingByPowerOf10(-1, &behavior).isNaN());
}

TEST(NSDecimalNumber, TakesTheBehavioursAnswerForAnError)
{
    class SevenInstead : public NSDecimalNumberHandler
    {
    public:
        SevenInstead() : NSDecimalNumberHandler(NSRoundPlain, 2, false, false, false, false) {}
        std::optional<NSDecimalNumber>
        exceptionDuringOperation(const QString &operation, NSCalculationError error,
                                 const NSDecimalNumber &leftOperand,
                                 const std::optional<NSDecimalNumber> &rightOperand) const override
        {
            EXPECT_EQ(operation, u"decimalNumberByDividingBy:");
            if (error == NSCalculationLossOfPrecision)
                return std::nullopt;
            EXPECT_EQ(error, NSCalculationDivideByZero);
            EXPECT_EQ(leftOperand.integerValue(), 5);
            EXPECT_EQ(rightOperand, NSDecimalNumber());
            return NSDecimalNumber(7);
        }
    };
    const SevenInstead behavior;
    EXPECT_EQ(NSDecimalNumber(5).decimalNumberByDividingBy({}, &behavior), NSDecimalNumber(7));
    NSDecimalNumber::setDefaultBehavior(&behavior);
    EXPECT_EQ(NSDecimalNumber(1).decimalNumberByDividingBy(NSDecimalNumber(3)).description(),
              u"0.33");
    NSDecimalNumber::setDefaultBehavior(nullptr);
    EXPECT_GT(NSDecimalNumber(1).decimalNumberByDividingBy(NSDecimalNumber(3)), decimal(u"0.333"));
}

TEST(NSDecimalNumber, LeavesNotANumberAlone)
{
    const NSDecimalNumber nothing = NSDecimalNumber::notANumber();
    const NSDecimalNumber one(1);
    EXPECT_TRUE(nothing.decimalNumberByAdding(one).isNaN());
    EXPECT_TRUE(one.decimalNumberBySubtracting(nothing).isNaN());
    EXPECT_TRUE(one.decimalNumberByMultiplyingBy(nothing).isNaN());
    EXPECT_TRUE(nothing.decimalNumberByDividingBy(NSDecimalNumber()).isNaN());
    EXPECT_TRUE(nothing.decimalNumberByRaisingToPower(0).isNaN());
    EXPECT_TRUE(nothing.decimalNumberByNegating().isNaN());
    EXPECT_EQ(nothing.decimalNumberByNegating(), nothing);
    EXPECT_EQ(NSDecimalNumber().decimalNumberByNegating(), NSDecimalNumber());
    EXPECT_EQ(nothing.integerValue(), 0);
}

TEST(NSDecimalNumber, ConvertsNumbersOfAllTypes)
{
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithDouble(0.5).description(), u"0.5");
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithDouble(1.8446744073709555e18).description(),
              u"1844674407370955520");
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithDouble(1.8446744073709553e18).description(),
              u"1844674407370955264");
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithDouble(1.8446744073709555e20).description(),
              u"184467440737095548928"); // all digits, not only those of 64 bits
    EXPECT_TRUE(NSDecimalNumber::decimalNumberWithDouble(1.7976931348623157e308).isNaN());
    EXPECT_TRUE(
        NSDecimalNumber::decimalNumberWithDouble(std::numeric_limits<double>::quiet_NaN()).isNaN());
    const auto of = [](const QVariant &value) {
        return NSDecimalNumber::decimalNumberWithNumber(value).description();
    };
    EXPECT_EQ(of(true), u"1");
    EXPECT_EQ(of(-5), u"-5");
    EXPECT_EQ(of(std::numeric_limits<quint64>::max()), u"18446744073709551615");
    EXPECT_EQ(of(std::numeric_limits<qint64>::min()), u"-9223372036854775808");
    EXPECT_EQ(of(QVariant::fromValue(decimal(u"1.5"))), u"1.5");
    EXPECT_EQ(of(u"5"_s), u"NaN");
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithMantissa(1500, -1, false).description(), u"150");
    EXPECT_EQ(NSDecimalNumber::decimalNumberWithMantissa(123, 0, true).description(), u"-123");
}

TEST(NSDecimalNumber, ConvertsToOtherTypes)
{
    EXPECT_EQ(decimal(u"-1.5").doubleValue(), -1.5);
    EXPECT_EQ(decimal(u"0.1").doubleValue(), 0.1);
    EXPECT_EQ(decimal(u"12e20").doubleValue(), 12e20);
    EXPECT_EQ(decimal(u"-9223372036854775808").integerValue(), std::numeric_limits<qint64>::min());
    EXPECT_EQ(decimal(u"9223372036854775808").integerValue(), 0);
    EXPECT_EQ(decimal(u"1e127").integerValue(), 0);
    EXPECT_EQ(decimal(u"1e-128").integerValue(), 0);
    EXPECT_EQ(decimal(u"-1.9").integerValue(), -1);
    EXPECT_EQ(decimal(u"123456.789").descriptionWithLocale(NSLocale(u"fr_FR"_s)), u"123456,789");
    EXPECT_EQ(decimal(u"1e-5").description(), u"0.00001");
    EXPECT_EQ(NSDecimalNumber::maximumDecimalNumber().description().size(), 38 + 127);
    EXPECT_LT(NSDecimalNumber::minimumDecimalNumber(), decimal(u"-1e100"));
}

TEST(NSDecimalNumber, RoundsTextsThatAreTooLong)
{
    const QString nines(38, u'9');
    EXPECT_EQ(decimal(QString(nines + u"4")), decimal(QString(nines + u"e1")));
    EXPECT_EQ(decimal(QString(nines + u"5")), decimal(u"1e39"));
    EXPECT_EQ(decimal(QString(nines + u".5")), decimal(u"1e38"));
    EXPECT_EQ(decimal(QString(nines + u"e127")), NSDecimalNumber::maximumDecimalNumber());
    EXPECT_TRUE(decimal(QString(nines + u".5e127")).isNaN()); // 10^165
    EXPECT_EQ(decimal(u"1e164").description(), QString(u'1' + QString(164, u'0')));
    EXPECT_TRUE(decimal(u"1e165").isNaN());
    EXPECT_TRUE(decimal(u"0e200").isNaN());
}

TEST(NSDecimalNumber, HasZeroAndOne)
{
    EXPECT_EQ(NSDecimalNumber::zero(), NSDecimalNumber());
    EXPECT_EQ(NSDecimalNumber::zero().description(), u"0");
    EXPECT_EQ(NSDecimalNumber::one().description(), u"1");
    EXPECT_EQ(NSDecimalNumber::one().decimalNumberBySubtracting(NSDecimalNumber::one()),
              NSDecimalNumber::zero());
}

TEST(NSDecimalNumber, OrdersByValue)
{
    const char16_t *const ascending[] = {u"-1e127", u"-12.5", u"-12.4", u"-1e-128", u"0",
                                         u"1e-128", u"0.1",   u"0.11",  u"1",       u"9",
                                         u"10",     u"100",   u"101",   u"1e38",    u"1e127"};
    for (const char16_t *left : ascending) {
        for (const char16_t *right : ascending)
            EXPECT_EQ(decimal(left) <=> decimal(right),
                      decimal(left).doubleValue() <=> decimal(right).doubleValue());
    }
    EXPECT_GT(NSDecimalNumber::notANumber(), NSDecimalNumber::maximumDecimalNumber());
}

namespace {
QVariant decimal(const char16_t *text)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text));
}
} // namespace

TEST(NSDecimalNumber, KeepsThirtyEightDigitsRoundedHalfAwayFromZero)
{
    const auto description = [](const char16_t *text) {
        return NSDecimalNumber::decimalNumberWithString(text).description();
    };
    EXPECT_EQ(description(u"3.14159265358979323846264338327950288419"),
              u"3.1415926535897932384626433832795028842"_s);
    EXPECT_EQ(description(u"99999999999999999999999999999999999999"), QString(38, u'9'));
    EXPECT_EQ(description(u"999999999999999999999999999999999999995"), u"1"_s + QString(39, u'0'));
    EXPECT_EQ(description(u"1e127"), u"1"_s + QString(127, u'0'));
    EXPECT_EQ(description(u"1e-128").size(), 130);
    EXPECT_EQ(description(u"1e128"), u"1"_s + QString(128, u'0'));
    EXPECT_EQ(description(u"1e165"), u"NaN"_s);
    EXPECT_EQ(description(u"-0"), u"0"_s);
    EXPECT_EQ(description(u"1e"), u"1"_s);
    EXPECT_EQ(description(u"1e99999999999999999999"), u"NaN"_s);
}

TEST(NSDecimalNumber, TheExampleOfTheHeaderHolds)
{
    const auto price = NSDecimalNumber::decimalNumberWithString(u"12.50");
    EXPECT_EQ(price.description(), u"12.5"_s);
    EXPECT_TRUE(price == NSDecimalNumber::decimalNumberWithString(u"12.5"));
    EXPECT_TRUE(NSDecimalNumber::decimalNumberWithString(u"abc").isNaN());
    EXPECT_EQ(NSDecimalNumber(-1200).integerValue(), -1200);
    EXPECT_DOUBLE_EQ(price.doubleValue(), 12.5);
}

TEST(NSDecimalNumber, OrdersBySignPlaceAndDigits)
{
    const char16_t *ascending[] = {u"-1e40", u"-12.5",  u"-12.49", u"-1",   u"-0.001",
                                   u"0",     u"1e-100", u"0.5",    u"9.99", u"10",
                                   u"10.01", u"1e40",   u"x"};
    for (size_t i = 0; i < std::size(ascending); ++i) {
        for (size_t j = 0; j < std::size(ascending); ++j)
            EXPECT_EQ(NSDecimalNumber::decimalNumberWithString(ascending[i]) <=>
                          NSDecimalNumber::decimalNumberWithString(ascending[j]),
                      i <=> j);
    }
}

TEST(NSDecimalNumber, EqualsADoubleOfTheSameShortestText)
{
    EXPECT_TRUE(NSObject::isEqual(decimal(u"0.1"), 0.1));
    EXPECT_FALSE(NSObject::isEqual(decimal(u"0.10000000000000001"), 0.1));
}
