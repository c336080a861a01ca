#include "Count_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/normalizer2.h>
#include <unicode/uchar.h>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype DigitsOfGroup = 3;
constexpr char16_t FractionSlash = u'\u2044';

/// A numerator over a denominator, as it stands in a text.
struct Ratio
{
    qsizetype end = 0; ///< 0 if there is none
    NSDecimalNumber numerator;
    NSDecimalNumber denominator;
    bool isPointed = false;  ///< whether "/" stands between them, which may be a point
    bool mayBeGroup = false; ///< whether the numerator has the digits of a group: "000", "050"

    bool isThere() const { return end > 0; }
    bool isProper() const { return numerator < denominator; }
    bool hasValue() const { return denominator > NSDecimalNumber(); }

    NSDecimalNumber value() const
    {
        return numerator.decimalNumberByDividingBy(denominator, exactDecimals());
    }
};

bool isSlash(QStringView text, qsizetype index)
{
    return index < text.size() && (text[index] == u'/' || text[index] == FractionSlash);
}

qsizetype endOfDigits(QStringView text, qsizetype index)
{
    while (index < text.size() && text[index] >= u'0' && text[index] <= u'9')
        ++index;
    return index;
}

NSDecimalNumber decimalOf(QStringView digits)
{
    return NSDecimalNumber::decimalNumberWithString(digits);
}

/// "3/4" with the numerator at \a position.
Ratio ratioOfDigits(QStringView text, qsizetype position)
{
    const qsizetype slash = endOfDigits(text, position);
    if (slash == position || !isSlash(text, slash))
        return {};
    const qsizetype end = endOfDigits(text, slash + 1);
    if (end == slash + 1)
        return {};
    const QStringView numerator = text.sliced(position, slash - position);
    return {end, decimalOf(numerator), decimalOf(text.sliced(slash + 1, end - slash - 1)),
            text[slash] == u'/', numerator.front() == u'0' || numerator.size() >= DigitsOfGroup};
}

/// "¾".
Ratio ratioOfSign(QStringView text, qsizetype position)
{
    if (position >= text.size() || text[position].unicode() < 0x80 ||
        u_getIntPropertyValue(text[position].unicode(), UCHAR_DECOMPOSITION_TYPE) != U_DT_FRACTION)
        return {};
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString parts = icu::Normalizer2::getNFKDInstance(status)->normalize(
        ICU::aliasOf(text.sliced(position, 1)), status);
    Ratio ratio = ratioOfDigits(ICU::stringOf(parts), 0);
    if (ratio.isThere()) {
        ratio.end = position + 1;
        ratio.isPointed = false;
    }
    return ratio;
}

Ratio ratioAt(QStringView text, qsizetype position)
{
    const Ratio ratio = ratioOfSign(text, position);
    return ratio.isThere() ? ratio : ratioOfDigits(text, position);
}

/// The fraction behind a whole number, with or without a blank; digits want one.
Ratio ratioBehind(QStringView text, qsizetype end)
{
    const bool isBlank = end < text.size() && text[end] == u' ';
    return isBlank ? ratioAt(text, end + 1) : ratioOfSign(text, end);
}

Count refused(Count count, const QString &reason)
{
    count.kind = Count::Kind::Refused;
    count.reason = reason;
    return count;
}

Count ambiguous(const Count &count)
{
    return refused(count, u"The stroke may stand before a fraction or in the middle of one."_s);
}

Count withRatio(Count count, const Ratio &ratio, const NSDecimalNumber &whole)
{
    count.kind = Count::Kind::Fraction;
    count.fractionAt = count.end;
    count.end = ratio.end;
    if (!ratio.hasValue())
        return refused(count, u"Nothing can be divided by zero."_s);
    count.fraction = ratio.value();
    count.value = whole.decimalNumberByAdding(count.fraction, exactDecimals());
    count.divisor = ratio.denominator;
    count.exactDividend = whole.decimalNumberByMultiplyingBy(ratio.denominator, exactDecimals())
                              .decimalNumberByAdding(ratio.numerator, exactDecimals());
    return count;
}

Count mixedNumber(const Count &count, const Ratio &ratio)
{
    if (!count.numeral.isPlain || !ratio.isProper() || ratio.mayBeGroup)
        return refused(count, u"Only a part of one can stand behind a whole number."_s);
    return withRatio(count, ratio, count.numeral.value());
}
} // namespace

const QString &KTPrivate::unevenSeparatorsReason()
{
    static const QString reason =
        u"The separators do not stand where groups of digits end or the fraction begins."_s;
    return reason;
}

Count Count::at(QStringView folded, qsizetype position, const NumberSigns &signs)
{
    Count count;
    count.end = position;
    if (const Ratio ratio = ratioAt(folded, position); ratio.isThere())
        return signs.hasSlashAsPoint && ratio.isPointed ? ambiguous(count)
                                                        : withRatio(count, ratio, {});
    count.numeral = Numeral::at(folded, position, signs);
    if (!count.numeral.isThere())
        return count;
    count.end = count.numeral.end;
    if (count.numeral.isUneven)
        return refused(count, unevenSeparatorsReason());
    if (const Ratio ratio = ratioBehind(folded, count.end); ratio.isThere())
        return signs.hasSlashAsPoint && ratio.isPointed ? ambiguous(count)
                                                        : mixedNumber(count, ratio);
    count.kind = Kind::Numeral;
    count.value = count.numeral.value();
    return count.value.isNaN() ? refused(count, u"The number has more digits than can be kept."_s)
                               : count;
}

void Count::addParts(const FoldedText &text, QList<KTReadingPart> *parts) const
{
    if (numeral.isThere())
        numeral.addParts(text, parts);
    if (kind != Kind::Fraction)
        return;
    const bool isBehindBlank = text.text()[fractionAt] == u' ';
    parts->append(
        partOf(text, fractionAt + isBehindBlank, end, u"fraction"_s, fraction.description()));
}
