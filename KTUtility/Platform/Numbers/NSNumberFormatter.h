#pragma once

// Longer than most headers: each setting stands here with its meaning. Those that no formatter of this
// library sets are in the tables of what the platform answers, by which this class is tested.

#include "NSFormatter.h"
#include "NSNumberFormatterRoundingMode.h"
#include "NSNumberFormatterStyle.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>
#include <KTUtility/Platform/Text/NSRange.h>
#include <KTUtility/Platform/Values/NSError.h>

#include <memory>
#include <optional>

/// Which contract a formatter follows; only that of 10.4 exists for numbers.
enum NSNumberFormatterBehavior {
    NSNumberFormatterBehaviorDefault = 0, ///< the same as 10.4
    NSNumberFormatterBehavior10_0 = 1000, ///< counts as 10.4
    NSNumberFormatterBehavior10_4 = 1040  ///< Unicode's patterns
};

/// Where padding goes.
enum NSNumberFormatterPadPosition {
    NSNumberFormatterPadBeforePrefix = 0, ///< "**-5"
    NSNumberFormatterPadAfterPrefix = 1,  ///< "-**5"
    NSNumberFormatterPadBeforeSuffix = 2, ///< "5**%"
    NSNumberFormatterPadAfterSuffix = 3   ///< "5%**"
};

namespace KTPrivate {
class SharedNumberFormatter;
}

/// The platform's number formatter: numbers and money in the conventions of a locale.
///
/// Use KTNumberFormatter and KTCurrencyFormatter for fields of forms; they are made of this class
/// and forgive what people type. Use this one where you need a setting that they do not have, a
/// percentage, a spelled-out number, or to know how much of a text is a number.
///
/// Every setting is set or not set. What is not set is the locale's and style's own, also after
/// the locale or style has changed; giving nil (a null text) unsets a text again. Setters only
/// take notes: set as many as you like. Formatters with the same settings share the costly part.
///
/// Plain ASCII texts are read and all usual numbers written without ICU, with ICU's results;
/// everything else is ICU's business (its patterns: UTS #35, part 3).
///
/// \code
/// NSNumberFormatter formatter;
/// formatter.setLocale(NSLocale(u"de_DE"_s));
/// formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
/// formatter.stringFromNumber(1234.5);                     // "1.234,5"
/// formatter.numberFromString(u"1.234,5"_s);  // 1234.5
/// \endcode
class KTUTILITY_EXPORT NSNumberFormatter : public NSFormatter
{
    Q_OBJECT

public:
    /// A formatter without style in the current locale.
    NSNumberFormatter();
    ~NSNumberFormatter() override;

    // --- Numbers to texts

    /// The text of a number; nil for what is none. nil itself has the text nilSymbol().
    QString stringForObjectValue(const QVariant &value) const override;
    /// The same for a number.
    QString stringFromNumber(const QVariant &number) const { return stringForObjectValue(number); }
    /// The text with \a withDefaultAttributes, or with those for negative values where
    /// they are set. What is no number has the text for not-a-number.
    std::optional<NSAttributedString> attributedStringForObjectValue(
        const QVariant &value, const QTextCharFormat &withDefaultAttributes = {}) const override;

    // --- Texts to numbers

    /// Reads a number at the start of a part of a text.
    /// \param value receives an integer (qint64) if all of the part is one, else a double; or an
    /// NSDecimalNumber of 38 digits if generatesDecimalNumbers(). May be null.
    /// \param range the part to read, all of the text if null. On return, on success and failure:
    /// where the number begins behind leading whitespace, and how many units were read. Only the
    /// first 1,024 units are looked at.
    /// \param error receives why there is no number; nil if there is one. May be null.
    /// \return whether there is a number, also if text is left over behind it.
    bool getObjectValue(QVariant *value, const QString &forString, NSRange *range,
                        NSError *error) const;
    /// Reads a text that has to be a number from start to end, but for whitespace at the end. If it
    /// is a number with something behind it, the error description is left as it is.
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;
    /// The number that a text is; nil if it is none.
    QVariant numberFromString(const QString &string) const;

    // --- Kind

    /// A NSNumberFormatterBehavior. It is kept and has no effect, since there is only one.
    void setFormatterBehavior(int behavior);
    /// A NSNumberFormatterStyle: plain numbers, money, percentages, words …; no style unless set.
    int numberStyle() const;
    void setNumberStyle(int style);
    /// The locale whose conventions are followed; the user's unless set.
    const NSLocale &locale() const;
    void setLocale(const NSLocale &locale);
    /// Whether texts are read leniently: signs of other scripts, other group separators, whitespace
    /// between sign, currency and digits, a currency that is missing.
    bool isLenient() const;
    void setLenient(bool lenient);
    /// Whether texts become NSDecimalNumber, digit by digit.
    bool generatesDecimalNumbers() const;
    void setGeneratesDecimalNumbers(bool generates);
    /// Whether texts with a fraction are numbers.
    bool allowsFloats() const;
    void setAllowsFloats(bool allows);

    // --- Digits

    /// Whether groups of digits are separated; as the style has it unless set.
    bool usesGroupingSeparator() const;
    void setUsesGroupingSeparator(bool uses);
    /// How many digits make a group: the first left of the point, and the others (0: the same).
    int groupingSize() const;
    void setGroupingSize(int size);
    /// How many digits make each further group, as in India; 0 for the same as the first.
    int secondaryGroupingSize() const;
    void setSecondaryGroupingSize(int size);
    /// Fewer digits before the point are filled up with zeros.
    int minimumIntegerDigits() const;
    void setMinimumIntegerDigits(int count);
    /// Of more digits before the point, only the last are shown.
    int maximumIntegerDigits() const;
    void setMaximumIntegerDigits(int count);
    /// Fewer digits are filled up with zeros, up to 999. A minimum above the maximum raises it.
    int minimumFractionDigits() const;
    void setMinimumFractionDigits(int count);
    /// More digits are rounded. A maximum below the minimum lowers it.
    int maximumFractionDigits() const;
    void setMaximumFractionDigits(int count);
    /// Whether the significant digits count instead of those before and behind the point.
    bool usesSignificantDigits() const;
    void setUsesSignificantDigits(bool uses);
    /// -1 unless set. A minimum raises the maximum to no less, and to 999 if that was not set; a
    /// maximum lowers the minimum to no more.
    int minimumSignificantDigits() const;
    void setMinimumSignificantDigits(int count);
    /// More significant digits are rounded; -1 unless set.
    int maximumSignificantDigits() const;
    void setMaximumSignificantDigits(int count);
    /// A NSNumberFormatterRoundingMode.
    int roundingMode() const;
    void setRoundingMode(int mode);
    /// What numbers are multiplied with before they are shown; nil unless set or percent (100).
    std::optional<int> multiplier() const;
    void setMultiplier(std::optional<int> multiplier);

    // --- Signs and separators. Giving nil brings the locale's own back.

    /// What stands before and behind numbers. A currency's sign in it follows the currency.
    QString positivePrefix() const;
    void setPositivePrefix(const QString &prefix);
    /// What stands behind positive numbers.
    QString positiveSuffix() const;
    void setPositiveSuffix(const QString &suffix);
    /// What stands before negative numbers.
    QString negativePrefix() const;
    void setNegativePrefix(const QString &prefix);
    /// What stands behind negative numbers.
    QString negativeSuffix() const;
    void setNegativeSuffix(const QString &suffix);
    /// The decimal point.
    QString decimalSeparator() const;
    void setDecimalSeparator(const QString &separator);
    /// What stands between groups of digits.
    QString groupingSeparator() const;
    void setGroupingSeparator(const QString &separator);
    /// The sign of negative numbers and exponents.
    QString minusSign() const;
    void setMinusSign(const QString &sign);
    /// The sign of positive numbers, where a pattern shows one.
    QString plusSign() const;
    void setPlusSign(const QString &sign);
    /// The sign of percentages.
    QString percentSymbol() const;
    void setPercentSymbol(const QString &symbol);
    /// The sign for thousandths, where a pattern shows one; the locale's.
    QString perMillSymbol() const;
    /// What stands before the exponent.
    QString exponentSymbol() const;
    void setExponentSymbol(const QString &symbol);

    // --- Money

    /// ISO 4217. Codes that are not three letters are kept but have no effect. Brings its own
    /// digits behind the point, unless those are set, and its sign, unless that is set.
    QString currencyCode() const;
    void setCurrencyCode(const QString &code);
    /// The sign of the currency: "$".
    QString currencySymbol() const;
    void setCurrencySymbol(const QString &symbol);
    /// The code of the currency, as money shows it in its international form: "USD".
    QString internationalCurrencySymbol() const;
    /// The decimal point of money.
    QString currencyDecimalSeparator() const;
    void setCurrencyDecimalSeparator(const QString &separator);
    /// What stands between groups of digits of money.
    QString currencyGroupingSeparator() const;
    void setCurrencyGroupingSeparator(const QString &separator);

    // --- Texts of their own

    /// The text of zero; nil (the default) formats it as a number.
    QString zeroSymbol() const;
    void setZeroSymbol(const QString &symbol);
    /// The text of nil, "" unless set.
    QString nilSymbol() const;
    void setNilSymbol(const QString &symbol);
    /// The text of not-a-number; the locale's unless set.
    QString notANumberSymbol() const;
    void setNotANumberSymbol(const QString &symbol);
    /// "+∞" and "-∞" unless set; the locale's sign is shown then.
    QString positiveInfinitySymbol() const;
    void setPositiveInfinitySymbol(const QString &symbol);
    /// The text of what is below all numbers; see positiveInfinitySymbol().
    QString negativeInfinitySymbol() const;
    void setNegativeInfinitySymbol(const QString &symbol);

    // --- Width

    /// The least number of units; -1 unless set.
    int formatWidth() const;
    void setFormatWidth(int width);
    /// What shorter texts are filled up with; a space unless set.
    QString paddingCharacter() const;
    void setPaddingCharacter(const QString &character);
    /// A NSNumberFormatterPadPosition.
    int paddingPosition() const;
    void setPaddingPosition(int position);

    // --- Patterns (UTS #35, part 3)

    /// Positive pattern, text of zero and negative pattern, with ";" between.
    QString format() const;
    /// Of one part: the positive pattern, from which the others follow (negative ones have "-" before
    /// it, zero has its text); of two: positive and negative; of three: with the text of zero
    /// between them. nil unsets the patterns. Texts of more than 1,024 units are ignored.
    void setFormat(const QString &format);
    /// The pattern of positive numbers.
    QString positiveFormat() const;
    void setPositiveFormat(const QString &format);
    /// The pattern of negative numbers.
    QString negativeFormat() const;
    void setNegativeFormat(const QString &format);

    // --- Attributes

    /// What replaces the default attributes of negative numbers; none unless set.
    const std::optional<QTextCharFormat> &textAttributesForNegativeValues() const;
    void setTextAttributesForNegativeValues(const std::optional<QTextCharFormat> &attributes);

protected:
    QString reasonForRejecting(const QString &text, const QString &errorDescription) const override;

private:
    friend class KTPrivate::SharedNumberFormatter;
    struct Private;

    const std::unique_ptr<Private> _private;
};
