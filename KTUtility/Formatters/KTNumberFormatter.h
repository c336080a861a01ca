#pragma once

#include "KTOptionsKeys.h"
#include <KTUtility/CommonForms/Text/KTReadingFormatter.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/SharedNumberFormatter.h>
#include <KTUtility/Platform/Text/NSLocale.h>
#include <KTUtility/Platform/Text/NSRange.h>

#include <optional>

class NSNumberFormatter;

namespace KTPrivate {
struct TypedDecimal;
}

/// Formats the numbers of a field, and reads what people type as exact decimals.
///
/// Displays with a number of decimal places (0 at first, ties round away from zero), thousands
/// separators if wanted, and negative numbers red and with "-" or in parentheses. Reads a number
/// whether or not its thousands are separated, "-5" and "(5)" for negative ones, digits of other
/// scripts and full-width ones, and whitespace around it; the result is an NSDecimalNumber with all
/// digits that were typed. Nothing may stand before or behind the number.
///
/// With readsCommonForms() it reads fractions ("3/4", "1 ½"), exponents and signs behind the number as
/// well, and separators that are not the locale's where they can mean one thing only ("1,234.56" in
/// German). Separators that stand where no grouping has them are rejected then ("1,50" in English).
///
/// Not for money with a currency sign (KTCurrencyFormatter), numbers in words (NSNumberFormatter). For the main thread.
/// Formatters with the same settings share all that is large.
///
/// \code
/// KTNumberFormatter formatter;                             // in the user's locale, here en_US
/// formatter.setDecimalPlaces(2);
/// formatter.stringForObjectValue(1234.5);                  // "1,234.50"
/// QVariant value;
/// formatter.getObjectValue(&value, u"(1,234.5678)"_s);    // -1234.5678, exactly
/// \endcode
class KTUTILITY_EXPORT KTNumberFormatter : public KTReadingFormatter
{
    Q_OBJECT
    Q_PROPERTY(NSLocale locale READ locale WRITE setLocale NOTIFY localeChanged)
    Q_PROPERTY(
        uint decimalPlaces READ decimalPlaces WRITE setDecimalPlaces NOTIFY decimalPlacesChanged)
    Q_PROPERTY(bool displayThousandsSeparator READ displayThousandsSeparator WRITE
                   setDisplayThousandsSeparator NOTIFY displayThousandsSeparatorChanged)
    Q_PROPERTY(bool highlightNegative READ highlightNegative WRITE setHighlightNegative NOTIFY
                   highlightNegativeChanged)
    Q_PROPERTY(bool formatNegativeUsingParens READ formatNegativeUsingParens WRITE
                   setFormatNegativeUsingParens NOTIFY formatNegativeUsingParensChanged)
    Q_PROPERTY(
        bool useDisplayStringForEditingString READ useDisplayStringForEditingString WRITE
            setUseDisplayStringForEditingString NOTIFY useDisplayStringForEditingStringChanged)
    Q_PROPERTY(bool rejectsUnevenGroups READ rejectsUnevenGroups WRITE setRejectsUnevenGroups NOTIFY
                   rejectsUnevenGroupsChanged)
    Q_PROPERTY(bool displaysPercent READ displaysPercent WRITE setDisplaysPercent NOTIFY
                   displaysPercentChanged)

public:
    /// A formatter in the user's current locale for numbers, with the settings named above.
    KTNumberFormatter();
    ~KTNumberFormatter() override;

    /// The locale of what is displayed and read.
    const NSLocale &locale() const { return _locale; }
    virtual void setLocale(const NSLocale &locale);

    /// Whether negative values are shown in red by attributedStringForObjectValue().
    bool highlightNegative() const { return _highlightNegative; }
    /// Sets the attributes for negative values to red letters, or to none.
    virtual void setHighlightNegative(bool highlightNegative);
    /// The attributes of negative values; none if they are not distinguished.
    virtual std::optional<QTextCharFormat> textAttributesForNegativeValues() const;
    virtual void
    setTextAttributesForNegativeValues(const std::optional<QTextCharFormat> &attributes);

    /// Whether negative numbers are shown in parentheses.
    bool formatNegativeUsingParens() const { return _formatNegativeUsingParens; }
    /// Shows -2 as "(2)", or as "-2" with the ASCII sign whatever the locale's own is.
    virtual void setFormatNegativeUsingParens(bool formatNegativeUsingParens);

    /// Whether thousands are separated, as the locale does it.
    virtual bool displayThousandsSeparator() const;
    virtual void setDisplayThousandsSeparator(bool displayThousandsSeparator);

    /// How many digits are shown behind the point at least.
    virtual uint decimalPlaces() const;
    /// Shows this many digits behind the point, no more and no fewer.
    virtual void setDecimalPlaces(uint decimalPlaces);
    /// Shows all digits that a value has behind the point (up to 100), and at least
    /// decimalPlaces().
    virtual void setDisplayAllDecimalPlaces();

    /// Whether editing starts with the text that is shown rather than with all digits.
    bool useDisplayStringForEditingString() const { return _useDisplayStringForEditingString; }
    virtual void setUseDisplayStringForEditingString(bool useDisplayStringForEditingString);

    /// Whether a text is rejected if separators stand elsewhere than between groups of digits. A
    /// separator that is not the locale's point is read as one of groups wherever it stands, so
    /// that "1,50" is 150 in Switzerland; with this setting it is no number there, while "1'500"
    /// and "1,500" are 1500. Groups have three digits before the point, or the locale's own count
    /// ("12,34,567" in India). What only other locales have for a point ("," in Egypt) is rejected
    /// where it might end a group. Off at first, and not among the options.
    bool rejectsUnevenGroups() const { return _rejectsUnevenGroups; }
    void setRejectsUnevenGroups(bool rejectsUnevenGroups);
    /// The error description of a text that is rejected for that reason.
    static const QString &unevenGroupsDescription();

    /// Whether numbers are shown and read as percentages: 0.5 is "50%", as the locale writes it, and
    /// "50", "50 %" and "%50" are 0.5. Such a field reads common forms in any case. Off at first, and
    /// not among the options; not for money.
    bool displaysPercent() const { return _displaysPercent; }
    void setDisplaysPercent(bool displaysPercent);

    /// "decimalPlaces", "displayThousandsSeparator", "highlightNegative" and
    /// "formatNegativeUsingParens".
    std::optional<QStringList> optionsKeys() const override;

    /// The text of a number; nil for everything else.
    QString stringForObjectValue(const QVariant &value) const override;
    /// The text of a number with the attributes of negative ones; nil if there is no text.
    std::optional<NSAttributedString> attributedStringForObjectValue(
        const QVariant &value, const QTextCharFormat &withDefaultAttributes = {}) const override;
    /// Without thousands separators, with "-" and up to 111 decimal places, so that nothing of the
    /// value is lost by editing it; or the shown text, see useDisplayStringForEditingString().
    QString editingStringForObjectValue(const QVariant &value) const override;

    /// Reads a typed number. A text that is none is tried again with compatibility characters
    /// (full-width digits, superscripts) as plain ones (Unicode's NFKD).
    /// \param value receives an NSDecimalNumber, nil if there is none.
    /// \param errorDescription receives why the last try read no number; nil if it read one and
    /// something was left over. See also rejectsUnevenGroups().
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

Q_SIGNALS:
    void localeChanged();
    void decimalPlacesChanged();
    void displayThousandsSeparatorChanged();
    void highlightNegativeChanged();
    void formatNegativeUsingParensChanged();
    void useDisplayStringForEditingStringChanged();
    void rejectsUnevenGroupsChanged();
    void displaysPercentChanged();

protected:
    /// A formatter in a locale, for what has another category's.
    explicit KTNumberFormatter(const NSLocale &locale);

    /// Red letters.
    static QTextCharFormat attributesOfHighlight();
    /// One round of four passes: as it is, in parentheses, with groups, and both.
    bool _internalGetNumberValue(QVariant *value, const QString &forString,
                                 QString *errorDescription) const;
    /// Whether a parse read all of a text but whitespace around it. Only lengths are compared.
    bool _validateFormattedResult(bool result, NSRange forRange, const QString &ofString) const;

    /// Whether the groups of a text that a formatter read may stand as they do, see
    /// rejectsUnevenGroups().
    bool acceptsGroups(const NSNumberFormatter &formatter, const QString &text,
                       const QVariant &value) const;

    /// The typed number without common forms.
    bool readNumber(QVariant *value, const QString &forString, QString *errorDescription) const;
    /// Answers what a grammar of common forms made of a text, and keeps the reading; what the
    /// formatter shows for the value has a form of its own.
    bool answer(const KTPrivate::TypedDecimal &typed, const QString &text, QVariant *value,
                QString *errorDescription) const;
    /// Why a text without a reading has none.
    virtual QString unreadDescription() const;
    /// What getObjectValue() said where it is for people, else unreadDescription().
    QString reasonForRejecting(const QString &text, const QString &errorDescription) const override;

    /// Whether to read the decomposition after \a original could not be read.
    static bool isWorthASecondTry(const QString &decomposed, const QString &original);

    /// The locale of both formatters below.
    NSLocale _locale;
    /// What reads.
    KTPrivate::SharedNumberFormatter _inputFormatter;
    /// What displays.
    KTPrivate::SharedNumberFormatter _numberFormatter;
    /// See highlightNegative().
    bool _highlightNegative = true;
    /// See formatNegativeUsingParens().
    bool _formatNegativeUsingParens = false;
    /// See useDisplayStringForEditingString().
    bool _useDisplayStringForEditingString = false;
    /// See rejectsUnevenGroups().
    bool _rejectsUnevenGroups = false;

private:
    void applyAffixes();

    struct Pass;
    struct Attempt;
    bool run(const Pass &pass, const QString &string, Attempt &attempt) const;
    bool readCommonForms(QVariant *value, const QString &forString,
                         QString *errorDescription) const;
    QString shownFormOf(const QVariant &value, const QString &text) const;

    bool _displaysPercent = false;
};
