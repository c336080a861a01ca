#include "NSDecimalNumber.h"

#include "DecimalArithmetic_p.h"
#include "NSException.h"

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// Arithmetic of decimals under a behaviour.

const QString NSDecimalNumberExactnessException = u"NSDecimalNumberExactnessException"_s;
const QString NSDecimalNumberOverflowException = u"NSDecimalNumberOverflowException"_s;
const QString NSDecimalNumberUnderflowException = u"NSDecimalNumberUnderflowException"_s;
const QString NSDecimalNumberDivideByZeroException = u"NSDecimalNumberDivideByZeroException"_s;

namespace {
using Operand = std::optional<NSDecimalNumber>;

thread_local const NSDecimalNumberBehaviors *chosenBehavior = nullptr;

const NSDecimalNumberBehaviors &behaviorOrDefault(const NSDecimalNumberBehaviors *behavior)
{
    return behavior ? *behavior : *NSDecimalNumber::defaultBehavior();
}

DecimalIntermediate intermediateOf(const NSDecimalNumber &number)
{
    const DecimalParts parts = DecimalParts::of(number);
    return {{0, parts.coefficient}, parts.exponent, parts.isNegative, false};
}

/// Rounds to the scale; a decimal that has no more digits stays. Digits are lost on purpose here,
/// which is no error.
NSDecimalNumber scaled(const NSDecimalNumber &number, const NSDecimalNumberBehaviors &behavior,
                       NSCalculationError *error)
{
    const short scale = behavior.scale();
    if (scale == NSDecimalNoScale || number.isNaN())
        return number;
    const qint64 lowest = std::max<qint64>(-scale, DecimalParts::MinimumExponent);
    if (DecimalParts::of(number).exponent >= lowest)
        return number;
    NSCalculationError ofScale = NSCalculationNoError;
    const NSDecimalNumber result =
        intermediateOf(number).roundedAt(lowest, behavior.roundingMode(), &ofScale);
    if (ofScale > NSCalculationLossOfPrecision)
        *error = ofScale;
    return result;
}

/// The result of an operation, or what the behaviour makes of its error.
NSDecimalNumber settled(const NSDecimalNumber &result, NSCalculationError error,
                        const char16_t *operation, const NSDecimalNumberBehaviors &behavior,
                        const NSDecimalNumber &left, const NSDecimalNumber *right)
{
    if (error == NSCalculationNoError)
        return result;
    return behavior
        .exceptionDuringOperation(QString::fromUtf16(operation), error, left,
                                  right ? Operand(*right) : std::nullopt)
        .value_or(result);
}

NSDecimalNumber finished(const DecimalIntermediate &intermediate, const char16_t *operation,
                         const NSDecimalNumberBehaviors &behavior, const NSDecimalNumber &left,
                         const NSDecimalNumber *right = nullptr)
{
    NSCalculationError error = NSCalculationNoError;
    const NSDecimalNumber result = intermediate.rounded(behavior.roundingMode(), &error);
    return settled(scaled(result, behavior, &error), error, operation, behavior, left, right);
}
} // namespace

NSDecimalNumberBehaviors::~NSDecimalNumberBehaviors() = default;

NSDecimalNumber
NSDecimalNumber::decimalNumberByAdding(const NSDecimalNumber &other,
                                       const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN || other._isNaN)
        return notANumber();
    return finished(DecimalArithmetic::sum(DecimalParts::of(*this), DecimalParts::of(other)),
                    u"decimalNumberByAdding:", behaviorOrDefault(behavior), *this, &other);
}

NSDecimalNumber
NSDecimalNumber::decimalNumberBySubtracting(const NSDecimalNumber &other,
                                            const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN || other._isNaN)
        return notANumber();
    return finished(DecimalArithmetic::sum(DecimalParts::of(*this),
                                           DecimalParts::of(other.decimalNumberByNegating())),
                    u"decimalNumberBySubtracting:", behaviorOrDefault(behavior), *this, &other);
}

NSDecimalNumber
NSDecimalNumber::decimalNumberByMultiplyingBy(const NSDecimalNumber &other,
                                              const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN || other._isNaN)
        return notANumber();
    return finished(DecimalArithmetic::product(DecimalParts::of(*this), DecimalParts::of(other)),
                    u"decimalNumberByMultiplyingBy:", behaviorOrDefault(behavior), *this, &other);
}

NSDecimalNumber
NSDecimalNumber::decimalNumberByDividingBy(const NSDecimalNumber &other,
                                           const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN || other._isNaN)
        return notANumber();
    constexpr const char16_t *operation = u"decimalNumberByDividingBy:";
    if (other == NSDecimalNumber())
        return settled(notANumber(), NSCalculationDivideByZero, operation,
                       behaviorOrDefault(behavior), *this, &other);
    return finished(DecimalArithmetic::quotient(DecimalParts::of(*this), DecimalParts::of(other)),
                    operation, behaviorOrDefault(behavior), *this, &other);
}

NSDecimalNumber
NSDecimalNumber::decimalNumberByRaisingToPower(unsigned power,
                                               const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN)
        return notANumber();
    const NSDecimalNumberBehaviors &used = behaviorOrDefault(behavior);
    NSCalculationError worst = NSCalculationNoError;
    const auto times = [&](const NSDecimalNumber &left, const NSDecimalNumber &right) {
        NSCalculationError error = NSCalculationNoError;
        const NSDecimalNumber result =
            left.isNaN() || right.isNaN()
                ? notANumber()
                : DecimalArithmetic::product(DecimalParts::of(left), DecimalParts::of(right))
                      .rounded(used.roundingMode(), &error);
        worst = std::max(worst, error);
        return result;
    };
    NSDecimalNumber result(1);
    NSDecimalNumber square = *this;
    for (; power > 0; power /= 2) {
        if (power % 2 == 1)
            result = times(result, square);
        if (power > 1)
            square = times(square, square);
    }
    result = scaled(result, used, &worst);
    return settled(result, worst, u"decimalNumberByRaisingToPower:", used, *this, nullptr);
}

NSDecimalNumber NSDecimalNumber::decimalNumberByMultiplyingByPowerOf10(
    short power, const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN)
        return notANumber();
    constexpr const char16_t *operation = u"decimalNumberByMultiplyingByPowerOf10:";
    DecimalIntermediate shifted = intermediateOf(*this);
    shifted.exponent += power;
    // The exponent alone counts, also where the digits could take some of it.
    const bool isTooLarge = shifted.exponent > DecimalParts::MaximumExponent;
    const bool isTooSmall = shifted.exponent < DecimalParts::MinimumExponent;
    if ((isTooLarge || isTooSmall) && !shifted.magnitude.isZero())
        return settled(notANumber(), isTooLarge ? NSCalculationOverflow : NSCalculationUnderflow,
                       operation, behaviorOrDefault(behavior), *this, nullptr);
    return finished(shifted, operation, behaviorOrDefault(behavior), *this, nullptr);
}

NSDecimalNumber NSDecimalNumber::decimalNumberByRoundingAccordingToBehavior(
    const NSDecimalNumberBehaviors *behavior) const
{
    if (_isNaN)
        return notANumber();
    const NSDecimalNumberBehaviors &used = behaviorOrDefault(behavior);
    NSCalculationError error = NSCalculationNoError;
    return settled(scaled(*this, used, &error), error,
                   u"decimalNumberByRoundingAccordingToBehavior:", used, *this, nullptr);
}

NSDecimalNumber NSDecimalNumber::decimalNumberByNegating() const
{
    NSDecimalNumber result = *this;
    result._isNegative = !_isNegative && !_isNaN && (_high | _low) != 0;
    return result;
}

const NSDecimalNumberBehaviors *NSDecimalNumber::defaultBehavior()
{
    static const NSDecimalNumberHandler standard(NSRoundPlain, NSDecimalNoScale, false, true, true,
                                                 true);
    return chosenBehavior ? chosenBehavior : &standard;
}

void NSDecimalNumber::setDefaultBehavior(const NSDecimalNumberBehaviors *behavior)
{
    chosenBehavior = behavior;
}

// --- The handler

namespace {
const QString &exceptionNameOf(NSCalculationError error)
{
    switch (error) {
    case NSCalculationOverflow:
        return NSDecimalNumberOverflowException;
    case NSCalculationUnderflow:
        return NSDecimalNumberUnderflowException;
    case NSCalculationDivideByZero:
        return NSDecimalNumberDivideByZeroException;
    default:
        return NSDecimalNumberExactnessException;
    }
}

QString reasonOf(NSCalculationError error)
{
    switch (error) {
    case NSCalculationOverflow:
        return u"the result is too large for a decimal number"_s;
    case NSCalculationUnderflow:
        return u"the result is too near to zero for a decimal number"_s;
    case NSCalculationDivideByZero:
        return u"a decimal number cannot be divided by zero"_s;
    default:
        return u"the result has more digits than a decimal number can hold"_s;
    }
}
} // namespace

NSDecimalNumberHandler::NSDecimalNumberHandler(NSRoundingMode roundingMode, short scale,
                                               bool raiseOnExactness, bool raiseOnOverflow,
                                               bool raiseOnUnderflow, bool raiseOnDivideByZero)
    : _roundingMode(roundingMode)
    , _scale(scale)
    , _raiseOnExactness(raiseOnExactness)
    , _raiseOnOverflow(raiseOnOverflow)
    , _raiseOnUnderflow(raiseOnUnderflow)
    , _raiseOnDivideByZero(raiseOnDivideByZero)
{
}

bool NSDecimalNumberHandler::raises(NSCalculationError error) const
{
    switch (error) {
    case NSCalculationLossOfPrecision:
        return _raiseOnExactness;
    case NSCalculationUnderflow:
        return _raiseOnUnderflow;
    case NSCalculationOverflow:
        return _raiseOnOverflow;
    case NSCalculationDivideByZero:
        return _raiseOnDivideByZero;
    default:
        return false;
    }
}

std::optional<NSDecimalNumber>
NSDecimalNumberHandler::exceptionDuringOperation(const QString &operation, NSCalculationError error,
                                                 const NSDecimalNumber &,
                                                 const std::optional<NSDecimalNumber> &) const
{
    if (raises(error))
        throw NSException(exceptionNameOf(error), operation + u' ' + reasonOf(error));
    return std::nullopt;
}
