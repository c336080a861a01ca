#include "KTDurationFormatter.h"

#include "KTDurationTables_p.h"

#include <KTUtility/CommonForms/Numbers/DurationGrammar_p.h>
#include <KTUtility/CommonForms/Numbers/ISODuration_p.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Values/ChronoConversions_p.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSScanner.h>

#include <algorithm>
#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype SecondsIndex = 4;

bool isPositive(const NSDecimalNumber &number)
{
    return !number.isNaN() && number > NSDecimalNumber();
}

/// Everything that separates tokens: all but letters, marks and numbers.
const NSCharacterSet &separators()
{
    static const NSCharacterSet set = NSCharacterSet::alphanumericCharacterSet().invertedSet();
    return set;
}

NSDecimalNumber wholeMinutesOf(const NSDecimalNumber &seconds,
                               const NSDecimalNumberBehaviors *whole)
{
    const NSDecimalNumber minute(60);
    return seconds.decimalNumberByDividingBy(minute, whole)
        .decimalNumberByMultiplyingBy(minute, whole);
}

/// A number with the locale's sign before the fraction.
QString withPoint(const NSDecimalNumber &number, const NSLocale &locale)
{
    const QString &points = NumberSigns::of(locale)->points;
    return number.description().replace(u'.', points.isEmpty() ? QChar(u'.') : points.front());
}

/// Whether a text has numbers, and nothing that the reader of units would skip without a word.
bool isOfCountsAndWords(const QString &text)
{
    const auto isDigit = [](QChar unit) { return unit.isDigit(); };
    return std::any_of(text.begin(), text.end(), isDigit) &&
           std::all_of(text.begin(), text.end(), [](QChar unit) {
               return unit.isLetterOrNumber() || unit.isMark() || unit.isSpace() || unit == u',' ||
                      unit == u';';
           });
}

/// Whether a typed word is one of ours, regardless of letter case.
using IsSame = bool (*)(const QString &word, const QString &typed);

QString notADuration()
{
    return NSBundle::mainBundle().localizedStringForKey(u"Could not convert to a time"_s, u""_s);
}

/// In small letters, of which Greek has two for "Σ".
QString inSmallLetters(const QString &text)
{
    return text.toLower().replace(u'ς', u'σ');
}

/// As Turks write: "I" is the capital of "ı", "İ" that of "i".
QString inTurkishSmallLetters(QString text)
{
    return inSmallLetters(text.replace(u'İ', u'i').replace(u'I', u'ı'));
}

bool isSameInSmallLetters(const QString &word, const QString &typed)
{
    return inSmallLetters(word) == inSmallLetters(typed);
}

/// Where two capitals stand for one letter ("ß"), and in Turkish.
bool isSameInCapitals(const QString &word, const QString &typed)
{
    return word.toUpper() == typed || inTurkishSmallLetters(word) == inTurkishSmallLetters(typed);
}
} // namespace

KTDurationFormatter::KTDurationFormatter() : KTDurationFormatter(KTDurationTables::shared()) {}

KTDurationFormatter::KTDurationFormatter(const KTDurationTables &tables)
    : _tables(tables), _locale(NSLocale::currentLocale())
{
}

KTDurationFormatter::~KTDurationFormatter() = default;

const QStringList &KTDurationFormatter::abbreviations()
{
    return KTDurationTables::shared().abbreviations;
}

const QStringList &KTDurationFormatter::singularNames()
{
    return KTDurationTables::shared().singularNames;
}

const QStringList &KTDurationFormatter::pluralNames()
{
    return KTDurationTables::shared().pluralNames;
}

void KTDurationFormatter::setLocale(const NSLocale &locale)
{
    _locale = locale;
    _words.reset();
    Q_EMIT localeChanged();
}

void KTDurationFormatter::setUseAbbreviations(bool useAbbreviations)
{
    _useAbbreviations = useAbbreviations;
    Q_EMIT useAbbreviationsChanged();
}

std::optional<QStringList> KTDurationFormatter::optionsKeys() const
{
    return QStringList{kKTFieldOption_useAbbreviations};
}

std::optional<NSDecimalNumber>
KTDurationFormatter::exceptionDuringOperation(const QString &, NSCalculationError,
                                              const NSDecimalNumber &,
                                              const std::optional<NSDecimalNumber> &) const
{
    return std::nullopt;
}

// --- Display

QString KTDurationFormatter::stringForObjectValue(const QVariant &value) const
{
    const bool isLength = isLengthOfTime(value);
    if (!isLength && !NSObject::isNumber(value))
        return {};
    const auto seconds =
        isLength ? value.value<NSDecimalNumber>() : NSDecimalNumber::decimalNumberWithNumber(value);
    return readsCommonForms() ? exactText(seconds) : wholeText(seconds);
}

/// In whole seconds; nothing for zero and less.
QString KTDurationFormatter::wholeText(NSDecimalNumber rest) const
{
    QString text = u""_s;
    if (!isPositive(rest))
        return text;
    for (qsizetype index = 0; index <= SecondsIndex; ++index) {
        const NSDecimalNumber unit(std::array{604'800, 86'400, 3'600, 60, 1}[size_t(index)]);
        const NSDecimalNumber count = rest.decimalNumberByDividingBy(unit, this);
        appendToString(&text, count, index);
        rest =
            rest.decimalNumberBySubtracting(count.decimalNumberByMultiplyingBy(unit, this), this);
    }
    return text;
}

/// With a sign and fractions of a second.
QString KTDurationFormatter::exactText(const NSDecimalNumber &seconds) const
{
    if (seconds.isNaN())
        return u""_s;
    const NSDecimalNumber length =
        seconds.isNegative() ? seconds.decimalNumberByNegating() : seconds;
    NSDecimalNumber rest;
    QString text = textOfMinutes(length, &rest);
    if (rest > NSDecimalNumber() || text.isEmpty()) {
        const bool isOne = rest == NSDecimalNumber::one();
        const QStringList &names = isOne ? _tables.singularNames : _tables.pluralNames;
        text += (text.isEmpty() ? u""_s : u" "_s) + withPoint(rest, _locale) +
                (_useAbbreviations ? _tables.abbreviations.at(SecondsIndex)
                                   : u' ' + names.at(SecondsIndex));
    }
    return seconds.isNegative() ? u'-' + text : text;
}

/// Without the seconds that are left over.
QString KTDurationFormatter::textOfMinutes(const NSDecimalNumber &length,
                                           NSDecimalNumber *rest) const
{
    constexpr qint64 SecondsInAMinute = 60;
    const qint64 whole = length.integerValue();
    if (length.isInteger() && NSDecimalNumber(whole) == length) {
        *rest = NSDecimalNumber(whole % SecondsInAMinute);
        return textOfMinutes(whole);
    }
    const NSDecimalNumber minutes = wholeMinutesOf(length, this);
    *rest = length.decimalNumberBySubtracting(minutes, exactDecimals());
    return wholeText(minutes);
}

/// The same for what machines count in.
QString KTDurationFormatter::textOfMinutes(qint64 rest) const
{
    QString text;
    for (qsizetype index = 0; index < SecondsIndex; ++index) {
        const qint64 unit = std::array{604'800, 86'400, 3'600, 60}[size_t(index)];
        if (const qint64 count = rest / unit)
            appendToString(&text, NSDecimalNumber(count), index);
        rest %= unit;
    }
    return text;
}

void KTDurationFormatter::appendToString(QString *string, const NSDecimalNumber &number,
                                         qsizetype atIndex) const
{
    if (!isPositive(number))
        return;
    const bool isPlural = number > NSDecimalNumber(1);
    const QStringList &names = isPlural ? _tables.pluralNames : _tables.singularNames;
    if (!string->isEmpty())
        string->append(u' ');
    string->append(number.description());
    if (!_useAbbreviations)
        string->append(u' ');
    string->append((_useAbbreviations ? _tables.abbreviations : names).value(atIndex));
}

// --- Reading

NSDecimalNumber KTDurationFormatter::secondsFrom(const NSDecimalNumber &count,
                                                 const QString &ofKind) const
{
    if (!isPositive(count) || ofKind.isEmpty())
        return {};
    for (const IsSame isSame : {&isSameInSmallLetters, &isSameInCapitals}) {
        for (const QStringList *words :
             {&_tables.pluralNames, &_tables.singularNames, &_tables.abbreviations}) {
            for (const QString &candidate : *words) {
                if (isSame(candidate, ofKind))
                    return count.decimalNumberByMultiplyingBy(
                        _tables.convertToSeconds.value(candidate), this);
            }
        }
    }
    return {};
}

void KTDurationFormatter::willFormatString(const QString &, const QVariant &)
{
    _isFormattingForImportField = true;
}

void KTDurationFormatter::didFormatString(const QString &, const QVariant &)
{
    _isFormattingForImportField = false;
}

/// The numbers and units of a text, added up.
class KTDurationFormatter::Reading
{
public:
    Reading(const KTDurationFormatter &formatter, const QString &text)
        : _formatter(formatter), _scanner(text)
    {
        _scanner.setCharactersToBeSkipped(separators());
    }

    /// Nothing if the text is no duration.
    std::optional<NSDecimalNumber> run()
    {
        NSDecimalNumber total;
        while (!_scanner.isAtEnd()) {
            const NSDecimalNumber seconds = readOne();
            if (!isPositive(seconds))
                return std::nullopt;
            total = total.decimalNumberByAdding(seconds, &_formatter);
        }
        return total;
    }

private:
    /// A number with its unit; zero if there is none here.
    NSDecimalNumber readOne()
    {
        QString digits;
        QString word;
        if (!_scanner.scanCharactersFromSet(NSCharacterSet::decimalDigitCharacterSet(), &digits) ||
            _scanner.isAtEnd() ||
            !_scanner.scanCharactersFromSet(NSCharacterSet::letterCharacterSet(), &word))
            return {};
        const bool isLast = _formatter._isFormattingForImportField && _scanner.isAtEnd();
        if (isLast && word == u"s")
            word = _formatter._tables.abbreviations.at(SecondsIndex);
        return _formatter.secondsFrom(NSDecimalNumber::decimalNumberWithString(digits), word);
    }

    const KTDurationFormatter &_formatter;
    NSScanner _scanner;
};

bool KTDurationFormatter::getObjectValue(QVariant *value, const QString &forString,
                                         QString *errorDescription) const
{
    if (!value)
        return false;
    if (forString.isEmpty())
        return true;
    return readsCommonForms() ? readCommonForms(value, forString, errorDescription)
                              : readUnits(value, forString, errorDescription);
}

/// Without common forms.
bool KTDurationFormatter::readUnits(QVariant *value, const QString &forString,
                                    QString *errorDescription) const
{
    if (const std::optional<NSDecimalNumber> total = Reading(*this, forString).run()) {
        *value = QVariant::fromValue(*total);
        return true;
    }
    if (errorDescription)
        *errorDescription = notADuration();
    return false;
}

// --- Common forms

bool KTDurationFormatter::readCommonForms(QVariant *value, const QString &forString,
                                          QString *errorDescription) const
{
    const FoldedText text(forString);
    TypedDecimal typed = ISODuration::read(text);
    if (typed.isUnknown()) {
        typed = DurationGrammar::read(text, vocabulary());
    }
    // Units in any order, as always.
    QVariant found;
    if (typed.isRefused() && isOfCountsAndWords(forString) &&
        readUnits(&found, forString, errorDescription)) {
        typed = {TypedDecimal::Outcome::Read, found.value<NSDecimalNumber>(), {}, {}, {}};
        typed.reading.form = u"units"_s;
    }
    return answer(typed, forString, value, errorDescription);
}

/// Looked up once, when a text is read first.
DurationVocabulary KTDurationFormatter::vocabulary() const
{
    if (!_words) {
        _words = DurationWords::of(_locale);
        _signs = NumberSigns::of(_locale);
    }
    return {_tables.phrases, *_words, *_signs};
}

bool KTDurationFormatter::answer(const TypedDecimal &typed, const QString &text, QVariant *value,
                                 QString *errorDescription) const
{
    KTReading reading = typed.reading;
    if (typed.isRead()) {
        *value = QVariant::fromValue(typed.value);
        const bool isOfUnits = reading.form.endsWith(u"units"_s);
        if (isOfUnits && exactText(typed.value) == text)
            reading.form = u"display"_s;
    } else if (errorDescription) {
        *errorDescription = typed.isRefused() ? typed.translatedReason() : notADuration();
    }
    setReading(reading);
    return typed.isRead();
}

KT_REGISTER_CLASS(KTDurationFormatter)
