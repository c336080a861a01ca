#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Text/NSStringEncoding.h>

#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <optional>

/// What separated text files look like where the user lives: the separator, what must be quoted,
/// and the encoding.
///
/// Which locale has which separator stands in a property list of the application,
/// "separators.plist" in the resources of the main bundle: under "List" all separators that the
/// application offers; under "fr_CH" the one of a language in a country; under "fr" that of the
/// language elsewhere. There is one object for the process; for the main thread.
///
/// \code
/// QStringList alternates;
/// const QString separator =
///     KTInternational::instance()->localizedCSVSeparatorAndAlternates(&alternates);
/// // ";" and (",", "\t") in Germany, if the application's list says so
/// KTInternational::illegalCSVCharacterSet().characterIsMember(U'"');    // true
/// \endcode
class KTUTILITY_EXPORT KTInternational
{
public:
    /// The one object, made at the first call.
    static KTInternational *instance();

    /// Registers itself as the instance. An application may make an object of its own class before
    /// anybody calls instance(); that then is the one.
    /// \throws NSException NSInternalInconsistencyException "Should not be creating multiple
    /// KTInternational objects." if there is one (through the assertion handler).
    KTInternational();
    /// The next call of instance() makes a new one.
    virtual ~KTInternational();
    KTInternational(const KTInternational &) = delete;
    KTInternational &operator=(const KTInternational &) = delete;

    /// The application's list; nothing if there is none. Once it was found it is kept; until then
    /// each call looks for it.
    std::optional<QVariantMap> separatorsDict();

    /// The separator of the user's locale; "," if the list does not know it.
    /// \param alternates the other separators of the list are appended to it; it stays as it is if
    /// the list does not know the locale. What the list holds of other types than texts is logged
    /// under "invalid" at level 4, and ends the search.
    /// \throws NSException NSInternalInconsistencyException if \a alternates is null (through the
    /// assertion handler).
    QString localizedCSVSeparatorAndAlternates(QStringList *alternates);

    /// The characters for which a field must be quoted: those of
    /// KTInternationalCSVIllegalCharacters, and all separators. It is made at the first call and
    /// deliberately stays as it is when the locale changes.
    static const NSCharacterSet &illegalCSVCharacterSet();

    /// The encoding of texts in the user's language, deliberately Mac OS Roman for all, Japanese
    /// ("ja") included: Shift JIS would be for a language whose code is the very object
    /// KTInternationalJapaneseLanguageCode.
    static NSStringEncoding stringEncodingForCurrentLanguage();

protected:
    /// The path of the list; nil if there is none. An application may keep it elsewhere.
    virtual QString separatorsPath() const;

private:
    QString separatorFor(const QVariantMap &list) const;

    std::optional<QVariantMap> _separators;
};

KTUTILITY_EXPORT extern const QString KTInternationalSeparatorsFileName;        ///< "separators"
KTUTILITY_EXPORT extern const QString KTInternationalSeparatorsFileType;        ///< "plist"
KTUTILITY_EXPORT extern const QString KTInternationalSeparatorsListKey;         ///< "List"
KTUTILITY_EXPORT extern const QString KTInternationalDefaultCSVSeparator;       ///< ","
KTUTILITY_EXPORT extern const QString KTInternationalSecondDefaultCSVSeparator; ///< ";"
/// Comma, semicolon, double quote, carriage return, line feed, tab and space.
KTUTILITY_EXPORT extern const QString KTInternationalCSVIllegalCharacters;
KTUTILITY_EXPORT extern const QString KTInternationalEmptyString; ///< ""
/// "jp", deliberately; the code of the language is "ja".
KTUTILITY_EXPORT extern const QString KTInternationalJapaneseLanguageCode;
KTUTILITY_EXPORT extern const QString kJapaneseContryCode; ///< "JP"
