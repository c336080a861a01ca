#include "NSNumberFormatter.h"

#include "NSNumberFormatter_p.h"
#include "NumberEngine_p.h"
#include "NumberText_p.h"
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <algorithm>
#include <cmath>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// A number in decimal digits, for the value that the caller wants.
struct ReadNumber
{
    NSRange range;
    bool isNumber = false;
    bool isInteger = false;
    NSDecimalNumber decimal;
};

NSDecimalNumber decimalOf(const NumberReader::Result &result)
{
    return NSDecimalNumber::decimalNumberWithMantissa(result.coefficient, -result.fractionDigits,
                                                      result.isNegative);
}

ReadNumber numberOf(const NumberReader::Result &result, qsizetype textLength)
{
    ReadNumber number;
    number.range = {result.begin, result.end - result.begin};
    number.isNumber = result.outcome == NumberReader::Number;
    if (!number.isNumber)
        return number;
    number.decimal = decimalOf(result);
    number.isInteger = !result.hasPoint && result.end == textLength;
    return number;
}

ReadNumber numberOf(const NumberReading &reading, NSRange range)
{
    ReadNumber number;
    number.range = range;
    if (!reading.isNumber)
        return number;
    number.decimal = NSDecimalNumber::decimalNumberWithString(QString::fromLatin1(reading.digits));
    number.isNumber = !number.decimal.isNaN();
    return number;
}

ReadNumber readWithICU(const NumberEngine &engine, QStringView text)
{
    const NumberText squeezed(text);
    const NumberReading reading = engine.read(squeezed.squeezed());
    const qsizetype end = squeezed.endOf(reading.length);
    ReadNumber number = numberOf(reading, {squeezed.begin(), end - squeezed.begin()});
    number.isInteger = reading.isInteger && end == text.size();
    const bool isWhole = number.isNumber && reading.length == squeezed.squeezed().size();
    if (isWhole || !engine.hasBlankInCurrencySign() || squeezed.isUnchanged(text))
        return number;
    // The first try has squeezed out the blank of the sign, too ("$ US").
    const NumberReading exact = engine.read(text.mid(squeezed.begin()));
    const bool isBetter = exact.isNumber && exact.length > number.range.length;
    return isBetter ? numberOf(exact, {squeezed.begin(), exact.length}) : number;
}

ReadNumber readNumber(const NumberEngine &engine, QStringView text)
{
    if (engine.reader()) {
        const NumberReader::Result result = engine.reader()->read(text);
        if (result.outcome != NumberReader::Undecided)
            return numberOf(result, text.size());
    }
    return readWithICU(engine, text);
}

const NSError &noNumberError()
{
    static const NSError error(NSCocoaErrorDomain, NSFormattingError,
                               u"The text is not a number."_s);
    return error;
}

bool fail(NSError *error)
{
    if (error)
        *error = noNumberError();
    return false;
}

/// The number of another type: an integer where the text was one, a decimal or a double.
QVariant valueOf(const ReadNumber &number, bool asDecimal)
{
    if (asDecimal)
        return QVariant::fromValue(number.decimal);
    if (number.isInteger)
        return QVariant::fromValue(number.decimal.integerValue());
    return number.decimal.doubleValue();
}

bool fitsInteger(const NSDecimalNumber &decimal)
{
    return NSDecimalNumber(decimal.integerValue()) == decimal;
}

bool isNaN(const QVariant &number)
{
    const int type = number.metaType().id();
    if (type == qMetaTypeId<NSDecimalNumber>())
        return number.value<NSDecimalNumber>().isNaN();
    return (type == QMetaType::Double || type == QMetaType::Float) && std::isnan(number.toDouble());
}

bool isInfinite(const QVariant &number)
{
    const int type = number.metaType().id();
    return (type == QMetaType::Double || type == QMetaType::Float) && std::isinf(number.toDouble());
}
} // namespace

NSNumberFormatter::NSNumberFormatter() : _private(std::make_unique<Private>())
{
    _private->settings.locale = NSLocale::currentLocale();
}

NSNumberFormatter::~NSNumberFormatter() = default;

// --- Numbers to texts

QString NSNumberFormatter::specialString(const QVariant &value) const
{
    if (isNaN(value))
        return _private->settings.notANumberSymbol;
    if (isInfinite(value))
        return value.toDouble() > 0 ? _positiveInfinitySymbol : _negativeInfinitySymbol;
    const bool isZero = !_zeroSymbol.isNull() && NSObject::isEqual(value, 0);
    return isZero ? _zeroSymbol : QString();
}

QString NSNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    if (!NSObject::isNumber(value))
        return NSObject::isNil(value) ? _nilSymbol : QString();
    const NumberEngine &engine = _private->engine();
    NumberDigits digits;
    if (_zeroSymbol.isNull() && engine.writer() && digits.take(value) &&
        digits.pointPosition <= engine.writer()->maximumIntegerDigits)
        return engine.writer()->write(digits);
    if (const QString special = specialString(value); !special.isNull())
        return special;
    return engine.stringFromNumber(value);
}

std::optional<NSAttributedString>
NSNumberFormatter::attributedStringForObjectValue(const QVariant &value,
                                                  const QTextCharFormat &attributes) const
{
    const bool isNumber = NSObject::isNumber(value);
    const QString text =
        isNumber || NSObject::isNil(value) ? stringForObjectValue(value) : notANumberSymbol();
    QTextCharFormat merged = attributes;
    const auto order =
        isNumber && !isNaN(value) ? NSObject::compare(value, 0) : std::weak_ordering::equivalent;
    if (order < 0 && _textAttributesForNegativeValues)
        merged.merge(*_textAttributesForNegativeValues);
    if (order > 0 && _textAttributesForPositiveValues)
        merged.merge(*_textAttributesForPositiveValues);
    return NSAttributedString(text, merged);
}

// --- Texts to numbers

bool NSNumberFormatter::isWithinBounds(const QVariant &value) const
{
    const bool isAbove = NSObject::isNil(_minimum) || NSObject::compare(value, _minimum) >= 0;
    return isAbove && (NSObject::isNil(_maximum) || NSObject::compare(value, _maximum) <= 0);
}

bool NSNumberFormatter::getObjectValue(QVariant *value, const QString &forString, NSRange *range,
                                       NSError *error) const
{
    const QStringView all(forString);
    const qsizetype start = range ? std::clamp<qsizetype>(range->location, 0, all.size()) : 0;
    const qsizetype length =
        range ? std::clamp<qsizetype>(range->length, 0, all.size() - start) : all.size();
    const QStringView text = all.mid(start, std::min(length, NumberText::MaximumLength));
    ReadNumber number;
    if (!_zeroSymbol.isNull() && text == _zeroSymbol)
        number = {{0, text.size()}, true, true, {}};
    else
        number = _private->read([text](const NumberEngine &engine) {
            const ReadNumber read = readNumber(engine, text);
            return std::pair(read.isNumber ? read.range.end() : -1, read);
        });
    if (range)
        *range = {start + number.range.location, number.range.length};
    if (!number.isNumber || !(_allowsFloats || number.decimal.isInteger()))
        return fail(error);
    number.isInteger = number.isInteger && fitsInteger(number.decimal);
    const QVariant result = valueOf(number, _generatesDecimalNumbers);
    if (isInfinite(result) || !isWithinBounds(result))
        return fail(error);
    if (value)
        *value = result;
    return true;
}

bool NSNumberFormatter::getObjectValue(QVariant *value, const QString &forString,
                                       QString *errorDescription) const
{
    NSRange range{0, forString.size()};
    NSError error;
    QVariant result;
    if (!getObjectValue(&result, forString, &range, errorDescription ? &error : nullptr)) {
        if (errorDescription)
            *errorDescription = error.localizedDescription();
        return false;
    }
    const NSCharacterSet &blanks = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    const QStringView rest = QStringView(forString).mid(range.end());
    const bool isWhole = std::all_of(rest.begin(), rest.end(), [&](QChar unit) {
        return blanks.characterIsMember(unit.unicode());
    });
    if (isWhole && value)
        *value = result;
    return isWhole;
}

QVariant NSNumberFormatter::numberFromString(const QString &string) const
{
    QVariant value;
    return getObjectValue(&value, string) ? value : QVariant();
}
