#pragma once

#include "KTNumberFormatter.h"

/// Formats the money of a field in one currency, and reads amounts with and without its sign.
///
/// The currency is the one of the user's locale at first, an ISO 4217 code. It brings its sign, as
/// the locale writes it, and its number of decimal places (none for yen, three for dinars);
/// decimalPlaces() cannot be set. Amounts round to even at a tie. Negative ones are red and have
/// the locale's form, or that form in parentheses. The currencies "INR" and "RON" are not offered;
/// dollars take their place.
///
/// Reads a plain number as KTNumberFormatter does, and numbers with the currency's sign, code or
/// name before or behind them, also negative and in parentheses. Names are those of the locale, in
/// singular and plural ("5 US dollars", "5 euros"), those of its own currency also without the
/// country ("5 dollars" in en_US); a sign may lack its final full stop or the marks of direction
/// that belong to it, and be of another width ("¥" and "￥").
///
/// With readsCommonForms() it reads the currency's narrow signs, its names' words, and all of these
/// in English as well, on either side, several of them too ("$5", "US$ 5", "5 dollars", "usd$ 5" for
/// US dollars anywhere). A sign that several currencies have means the field's; a text that names
/// another currency is rejected. "INR" and "RON" are currencies like others then.
///
/// \code
/// KTCurrencyFormatter formatter;                           // in the user's locale, here en_US
/// formatter.stringForObjectValue(1234.5);                  // "$1,234.50"
/// QVariant value;
/// formatter.getObjectValue(&value, u"($12.50)"_s);      // -12.5
/// formatter.setCurrencyType(u"JPY"_s);
/// formatter.stringForObjectValue(1234.5);                  // "¥1,234"
/// \endcode
class KTUTILITY_EXPORT KTCurrencyFormatter : public KTNumberFormatter
{
    Q_OBJECT
    Q_PROPERTY(
        QString currencyType READ currencyType WRITE setCurrencyType NOTIFY currencyTypeChanged)
    Q_PROPERTY(NSLocale currencyLocale READ currencyLocale WRITE setCurrencyLocale NOTIFY
                   currencyLocaleChanged)

public:
    KTCurrencyFormatter();
    ~KTCurrencyFormatter() override;

    /// The locale whose currency is the first one; its currency is never "INR" or "RON".
    const NSLocale &currencyLocale() const { return _currencyLocale; }
    /// Sets it, and gives the formatters the locale() of numbers (not this one). The currency that
    /// was set with setCurrencyType() stays.
    void setCurrencyLocale(const NSLocale &locale);

    /// The ISO 4217 code.
    QString currencyType() const;
    /// Changes the currency and its sign; nil takes that of locale(). "INR", "RON" and no currency
    /// at all become "USD"; the first two stay what they are while readsCommonForms(). The sign is the locale's own ("$" for Canadian dollars in Canada) if
    /// the formatter still has the locale it was made in, otherwise the unmistakable one ("CA$").
    void setCurrencyType(const QString &code);

    /// Also takes "INR" and "RON", if one of them was asked for, or dollars instead again.
    void setReadsCommonForms(bool readsCommonForms) override;

    std::optional<QTextCharFormat> textAttributesForNegativeValues() const override;
    void
    setTextAttributesForNegativeValues(const std::optional<QTextCharFormat> &attributes) override;
    /// Shows "-$2.00" as "($2.00)".
    void setFormatNegativeUsingParens(bool formatNegativeUsingParens) override;
    /// Whether whole units are grouped, as in "$1,234.00".
    bool displayThousandsSeparator() const override;
    void setDisplayThousandsSeparator(bool displayThousandsSeparator) override;
    /// Those of the currency. setDecimalPlaces() has no effect on them.
    uint decimalPlaces() const override;
    void setDisplayAllDecimalPlaces() override;

    /// "currencyType", "displayThousandsSeparator", "highlightNegative" and
    /// "formatNegativeUsingParens"; "decimalPlaces" is the currency's business.
    std::optional<QStringList> optionsKeys() const override;

    QString stringForObjectValue(const QVariant &value) const override;
    std::optional<NSAttributedString> attributedStringForObjectValue(
        const QVariant &value, const QTextCharFormat &withDefaultAttributes = {}) const override;
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

    /// Looks for a currency in which a text that cannot be read could be: the first of
    /// NSLocale::commonISOCurrencyCodes() that reads it. Stores its code in \a withOptions under
    /// "currencyType" and displays values in it; its sign appears with the next setCurrencyType(),
    /// that is, when the options are applied.
    /// \param withOptions may be null.
    /// \return this formatter; null if the text can be read already or in no currency.
    KTCurrencyFormatter *adjustForValue(const QString &value, QVariantMap *withOptions);

Q_SIGNALS:
    void currencyTypeChanged();
    void currencyLocaleChanged();

protected:
    QString unreadDescription() const override;
    /// As a plain number, with the currency, and with the currency in parentheses.
    bool _internalGetCurrencyValue(QVariant *value, const QString &forString,
                                   QString *errorDescription) const;

private:
    /// What changes with the currency.
    struct ShownCurrency
    {
        QString type;
        uint decimalPlaces;
    };

    ShownCurrency shownCurrency() const;
    void announceChangesSince(const ShownCurrency &before);
    void filterCurrency();
    bool isReplaced(const QString &code) const;
    void logLocales() const;
    bool readCurrency(QVariant *value, const QString &forString, QString *errorDescription) const;
    bool readCommonMoney(QVariant *value, const QString &forString,
                         QString *errorDescription) const;
    bool readAmount(QVariant *value, const QString &text, QString *errorDescription) const;
    bool readNamedAmount(QVariant *value, const QString &text, QString *errorDescription) const;
    bool readInParentheses(QVariant *value, const QString &text, QString *errorDescription) const;
    bool readsInCurrency(QVariant *value, const QString &text, const QString &code);
    KTCurrencyFormatter *adjusted(const QString &code, const QVariant &value, QVariantMap *options);

    NSLocale _currencyLocale;
    QString _askedCurrency; ///< what setCurrencyType() was given
    KTPrivate::SharedNumberFormatter _currencyFormatter;
    // Reading leaves it with or without parentheses.
    mutable KTPrivate::SharedNumberFormatter _currencyInputFormatter;
};
