#pragma once

#include <KTUtility/CommonForms/Text/KTReadingFormatter.h>
#include <KTUtility/KTUtilityExport.h>

#include <QList>
#include <QStringList>

#include <memory>
#include <optional>

namespace KTPrivate {
class PhonePatterns;
}

/// Shows phone numbers in the layout of a country; keeps them as they were typed.
///
/// A set of patterns is chosen by setFormatIndex(); docs/phone-number-formats.md says which index
/// is which country. The digits of a number are put into the first pattern of the set that they
/// fit exactly, whatever punctuation was typed; a number that fits none is shown as it was typed.
/// It has no options.
///
/// With readsCommonForms(), reading() tells what a text is: a number with its country code, one of
/// the country of the chosen set, or something else. What is stored and shown stays the same.
///
/// In a pattern, "#" is a digit; space, hyphen, comma, full stop, slash and brackets are layout;
/// everything else (a country code, say) has to stand at the start of the number.
///
/// \code
/// KTPhoneNumberFormatter formatter;
/// formatter.setFormatIndex(0);                                              // North America
/// formatter.stringForObjectValue(u"415.555.1234"_s);          // "(415) 555-1234"
/// formatter.stringForObjectValue(u"555-1234 ask for Ann"_s);  // as it is
/// formatter.setFormatIndex(1);                                              // United Kingdom
/// formatter.stringForObjectValue(u"01223456789"_s);           // "01223 456789"
/// \endcode
class KTUTILITY_EXPORT KTPhoneNumberFormatter : public KTReadingFormatter
{
    Q_OBJECT

public:
    /// Without patterns: every number is shown as it was typed.
    /// \throws NSException NSInternalInconsistencyException if the framework's resource
    /// "PhoneNumberFormats.plist" cannot be read.
    KTPhoneNumberFormatter();

    /// The pattern sets of the resource "PhoneNumberFormats.plist", read once.
    static const QList<QStringList> &patternSets();

    /// Chooses a set; none if there is no such index.
    void setFormatIndex(int formatIndex);

    /// "format strings: …".
    Q_INVOKABLE QString description() const;

    /// The number in its layout; "" for "", nil for what is no text.
    QString stringForObjectValue(const QVariant &value) const override;
    /// Takes every text as it is.
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

    /// The digits of a text in one pattern; nil if they do not fit.
    QString applyFormat(const QString &format, const QString &toString) const;

protected:
    /// With sets of its own, which have to outlive it.
    explicit KTPhoneNumberFormatter(const QList<QStringList> &sets);

    /// Reads pattern sets from a property list.
    /// \throws NSException as the constructor does.
    static QList<QStringList> patternSetsOfFile(const QString &path);

private:
    KTReading readingOf(const QString &text) const;
    /// Nil if no pattern fits.
    QString inFirstFittingPattern(const QString &text) const;

    const QList<QStringList> &_sets;
    bool _isFramework = false; ///< whether the sets are those of the resource
    std::optional<QStringList> _formatStrings;
    std::shared_ptr<const KTPrivate::PhonePatterns> _patterns;
};
