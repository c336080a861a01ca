#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <memory>

// What objectForKey() and displayNameForKey() answer, and the components of an identifier.

KTUTILITY_EXPORT extern const QString NSLocaleIdentifier;        ///< "identifier"
KTUTILITY_EXPORT extern const QString NSLocaleLanguageCode;      ///< "languageCode", ISO 639
KTUTILITY_EXPORT extern const QString NSLocaleScriptCode;        ///< "scriptCode", ISO 15924
KTUTILITY_EXPORT extern const QString NSLocaleCountryCode;       ///< "countryCode", ISO 3166
KTUTILITY_EXPORT extern const QString NSLocaleVariantCode;       ///< "variantCode"
KTUTILITY_EXPORT extern const QString NSLocaleCalendar;          ///< "calendar"
KTUTILITY_EXPORT extern const QString NSLocaleCurrencyCode;      ///< "currency", ISO 4217
KTUTILITY_EXPORT extern const QString NSLocaleCurrencySymbol;    ///< "currencySymbol"
KTUTILITY_EXPORT extern const QString NSLocaleDecimalSeparator;  ///< "decimalSeparator"
KTUTILITY_EXPORT extern const QString NSLocaleGroupingSeparator; ///< "groupingSeparator"

/// "gregorian", the calendar of most locales.
KTUTILITY_EXPORT extern const QString NSGregorianCalendar;
/// "japanese": Gregorian years counted in the emperors' eras.
KTUTILITY_EXPORT extern const QString NSJapaneseCalendar;

/// The conventions of a language and region: what numbers, money and dates look like there.
///
/// A small value; copies share what Unicode's locale data (CLDR) says. An identifier is a
/// language, then script, region and variant, then keywords (UTS #35): "en_US", "zh_Hant_TW",
/// "ja_JP@calendar=japanese;currency=USD". An unknown one is legal; it has the conventions of the
/// nearest known locale, in the end of none in particular ("root").
///
/// \code
/// const NSLocale germany(u"de_DE"_s);
/// germany.currencyCode();        // "EUR"
/// germany.decimalSeparator();    // ","
/// germany.displayNameForKey(NSLocaleCurrencySymbol, u"GBP"_s);    // "£"
/// \endcode
class KTUTILITY_EXPORT NSLocale
{
public:
    /// The locale without conventions of its own, "root".
    NSLocale() : NSLocale(QString()) {}
    /// The locale with an identifier; "-" may stand for "_".
    explicit NSLocale(const QString &localeIdentifier);

    /// What a locale is asked for. The environment may name another one for each (locale(7)):
    /// German texts beside Swiss numbers are a common choice.
    enum class Category {
        Numbers, ///< LC_ALL, LC_NUMERIC, LANG
        Money,   ///< LC_ALL, LC_MONETARY, LANG
        Dates,   ///< LC_ALL, LC_TIME, LANG
        Texts,   ///< LANGUAGE, LC_ALL, LC_MESSAGES, LANG
    };

    /// The user's locale: the one given to setCurrentLocale(), else Qt's default QLocale if the
    /// application changed it, else what the environment names for \a category. Of the variables
    /// above the first that is set and not empty counts; LANGUAGE does not while texts are in the
    /// "C" locale. "C" and "POSIX" count as "en_US".
    ///
    /// Each formatter of the framework has the locale of its category unless it is given another.
    static NSLocale currentLocale(Category category = Category::Numbers);
    /// Makes \a locale the user's for the whole process. Call it at start, before formatters are
    /// made; those that exist keep theirs.
    static void setCurrentLocale(const NSLocale &locale);
    /// Back to Qt's default locale or the environment's.
    static void resetCurrentLocale();

    /// The identifier in its usual spelling ("en-us" is "en_US").
    const QString &localeIdentifier() const;
    /// The language code; "" for root.
    const QString &languageCode() const;
    /// The region code; nil if the identifier has none.
    const QString &countryCode() const;
    /// The ISO 4217 code of the region's currency, or of the keyword "currency"; "XXX" (no
    /// currency) if there is neither.
    const QString &currencyCode() const;
    /// That currency's sign as people of this locale write their own money ("$" in Canada).
    const QString &currencySymbol() const;
    /// The calendar of the region, or of the keyword "calendar".
    const QString &calendarIdentifier() const;
    /// The decimal point.
    const QString &decimalSeparator() const;
    /// What stands between groups of digits.
    const QString &groupingSeparator() const;

    /// The value for one of the NSLocale keys above; nil if the locale has none or the key is
    /// unknown. The calendar is its identifier here; see NSCalendar for the calendar itself.
    QVariant objectForKey(const QString &key) const;

    /// What \a value is called in this locale's language: a locale identifier, language, script,
    /// region or variant code, a calendar, or a currency (its name for NSLocaleCurrencyCode, its
    /// sign for NSLocaleCurrencySymbol: "US$" for USD in Canada). A code without a name is its own
    /// name.
    /// \return nil for another key and for a currency code that is not three letters.
    QString displayNameForKey(const QString &key, const QString &value) const;

    /// The codes of the currencies in everyday use, in alphabetical order: the same ones on every
    /// system, so that a typed amount is in the same currency everywhere.
    static const QStringList &commonISOCurrencyCodes();

    /// The identifiers of all locales that there is data for, in alphabetical order.
    static const QStringList &availableLocaleIdentifiers();

    /// The parts of an identifier under the NSLocale keys; keywords under their own names.
    static QVariantMap componentsFromLocaleIdentifier(const QString &identifier);
    /// The identifier with these parts: "en_IN" and a currency give "en_IN@currency=USD".
    static QString localeIdentifierFromComponents(const QVariantMap &components);

    /// Locales are equal if their identifiers are.
    friend bool operator==(const NSLocale &left, const NSLocale &right)
    {
        return left._data == right._data || left.localeIdentifier() == right.localeIdentifier();
    }

private:
    struct Data;
    static std::shared_ptr<const Data> dataFor(const QString &identifier);

    std::shared_ptr<const Data> _data;
};

Q_DECLARE_METATYPE(NSLocale)
