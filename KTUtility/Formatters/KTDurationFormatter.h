#pragma once

#include "KTOptionsKeys.h"
#include <KTUtility/CommonForms/Text/KTReadingFormatter.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <memory>

class KTDurationTables;

namespace KTPrivate {
class DurationWords;
struct DurationVocabulary;
struct NumberSigns;
struct TypedDecimal;
} // namespace KTPrivate

/// Formats seconds as weeks, days, hours, minutes and seconds, and reads such texts.
///
/// Shows "1d 2h 3m", or "1 day 2 hours 3 minutes" without abbreviations; fractions of a second are
/// dropped, and zero and less show nothing. Reads numbers each followed by a unit's word or
/// abbreviation, in any order and letter case, with any punctuation between; a number without a
/// unit is not a duration.
///
/// The words are the program's: the translation context "Durations" with the source texts "w",
/// "d", "h", "m", "s", "week", "weeks", "day" and so on. They are looked up once, when the first
/// formatter needs them, and must be letters only, or they cannot be read back.
///
/// With readsCommonForms() it reads the units of the user's locale and of English as well, in all
/// widths and plurals, fractions ("1.5 h", "half an hour"), clocks ("1:30", hours before minutes),
/// ISO 8601 ("PT1H30M") and negative durations ("-2h"); units stand from the largest to the smallest
/// then, and months and years are rejected, since they have no fixed length. So that nothing is lost
/// by editing, it shows what it can read: "-2h", "3.14s" with the locale's point, "0s".
///
/// All its arithmetic is in whole seconds: it is the behaviour of its own decimal operations.
///
/// \code
/// KTDurationFormatter formatter;
/// formatter.stringForObjectValue(93784);                   // "1d 2h 3m 4s"
/// QVariant value;
/// formatter.getObjectValue(&value, u"2 hours, 30 minutes"_s);    // 9000
/// \endcode
class KTUTILITY_EXPORT KTDurationFormatter : public KTReadingFormatter,
                                             public NSDecimalNumberBehaviors
{
    Q_OBJECT
    Q_PROPERTY(bool useAbbreviations READ useAbbreviations WRITE setUseAbbreviations NOTIFY
                   useAbbreviationsChanged)
    Q_PROPERTY(NSLocale locale READ locale WRITE setLocale NOTIFY localeChanged)

public:
    /// With abbreviations, in the program's language.
    KTDurationFormatter();
    ~KTDurationFormatter() override;

    /// The locale whose words and signs are read as common forms; the user's current one for texts at
    /// first.
    const NSLocale &locale() const { return _locale; }
    /// Changes it. What is shown has the program's words all the same.
    void setLocale(const NSLocale &locale);

    // The words, from weeks to seconds.
    /// The words that abbreviations are shown with, from weeks to seconds.
    static const QStringList &abbreviations();
    /// The words for one of each, from weeks to seconds.
    static const QStringList &singularNames();
    /// The words for several of each, from weeks to seconds.
    static const QStringList &pluralNames();

    /// Whether units are abbreviated.
    bool useAbbreviations() const { return _useAbbreviations; }
    /// Whether durations are shown as "3h" rather than "3 hours".
    virtual void setUseAbbreviations(bool useAbbreviations);

    /// "useAbbreviations".
    std::optional<QStringList> optionsKeys() const override;

    /// The duration of a number of seconds or of a std::chrono::duration; "" for zero and less, unless readsCommonForms(); nil for
    /// what is no number.
    QString stringForObjectValue(const QVariant &value) const override;

    /// Reads a duration.
    /// \param value receives the seconds as an NSDecimalNumber. An empty text leaves it as it is.
    /// \param errorDescription receives "Could not convert to a time", translated in the context
    /// "Localizable".
    /// \return false also if \a value is null.
    bool getObjectValue(QVariant *value, const QString &forString,
                        QString *errorDescription = nullptr) const override;

    /// Brackets the reading of one value of an import: in between, an "s" at the end of a text
    /// means seconds in every language. \a forImportField is the field that is imported.
    void willFormatString(const QString &string, const QVariant &forImportField);
    /// The end of what willFormatString() began; to be called for each value, whether or not it
    /// could be read.
    void didFormatString(const QString &string, const QVariant &forImportField);

    /// Adds a number of units to a text, behind a space; nothing if it is not above zero.
    /// \param atIndex 0 for weeks to 4 for seconds.
    void appendToString(QString *string, const NSDecimalNumber &number, qsizetype atIndex) const;
    /// How many seconds a number of units is; zero for unknown words and numbers not above zero.
    NSDecimalNumber secondsFrom(const NSDecimalNumber &count, const QString &ofKind) const;

    // --- Behaviour of its decimal operations: whole numbers, rounded down, nothing raised.

    /// Always down.
    NSRoundingMode roundingMode() const override { return NSRoundDown; }
    short scale() const override { return 0; }
    std::optional<NSDecimalNumber>
    exceptionDuringOperation(const QString &operation, NSCalculationError error,
                             const NSDecimalNumber &leftOperand,
                             const std::optional<NSDecimalNumber> &rightOperand) const override;

Q_SIGNALS:
    void localeChanged();
    void useAbbreviationsChanged();

protected:
    /// With words of its own, which have to outlive it.
    explicit KTDurationFormatter(const KTDurationTables &tables);

private:
    class Reading;

    QString wholeText(NSDecimalNumber rest) const;
    QString exactText(const NSDecimalNumber &seconds) const;
    QString textOfMinutes(const NSDecimalNumber &length, NSDecimalNumber *rest) const;
    QString textOfMinutes(qint64 rest) const;
    bool readUnits(QVariant *value, const QString &forString, QString *errorDescription) const;
    bool readCommonForms(QVariant *value, const QString &forString,
                         QString *errorDescription) const;
    KTPrivate::DurationVocabulary vocabulary() const;
    bool answer(const KTPrivate::TypedDecimal &typed, const QString &text, QVariant *value,
                QString *errorDescription) const;

    const KTDurationTables &_tables;
    bool _useAbbreviations = true;
    NSLocale _locale;
    bool _isFormattingForImportField = false;
    mutable std::shared_ptr<const KTPrivate::DurationWords> _words;
    mutable std::shared_ptr<const KTPrivate::NumberSigns> _signs;
};
