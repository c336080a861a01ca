#include "KTNumberFormatter.h"

#include "DigitGroups_p.h"
#include "KTNumberFormatter_p.h"
#include "KTNumberTexts_p.h"
#include "NumberLetters_p.h"

#include <KTUtility/CommonForms/Numbers/NumberGrammar_p.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Numbers/NumberText_p.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Text/NSStringNormalization.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QBrush>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int MaximumInputFractionDigits = 111;

/// What stands before the percent sign.
QVariant inHundredths(const QVariant &value)
{
    if (!NSObject::isNumber(value))
        return value;
    return QVariant::fromValue(
        NSDecimalNumber::decimalNumberWithNumber(value).decimalNumberByMultiplyingByPowerOf10(
            2, exactDecimals()));
}

/// \a text without whitespace and line ends at both ends.
QStringView trimmed(QStringView text)
{
    const NSCharacterSet &whitespace = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    while (!text.isEmpty() && whitespace.characterIsMember(text.front().unicode()))
        text = text.mid(1);
    while (!text.isEmpty() && whitespace.characterIsMember(text.back().unicode()))
        text.chop(1);
    return text;
}
} // namespace

std::unique_ptr<NSNumberFormatter>
KTNumberFormatter_Private::createNumberFormatterWithLocale(const NSLocale &locale)
{
    auto formatter = std::make_unique<NSNumberFormatter>();
    formatter->setFormatterBehavior(NSNumberFormatterBehavior10_4);
    formatter->setNumberStyle(NSNumberFormatterDecimalStyle);
    formatter->setLocale(locale);
    formatter->setUsesGroupingSeparator(true);
    formatter->setLenient(true);
    formatter->setUsesSignificantDigits(false);
    return formatter;
}

std::unique_ptr<NSNumberFormatter>
KTNumberFormatter_Private::createInputFormatterWithLocale(const NSLocale &locale)
{
    auto formatter = createNumberFormatterWithLocale(locale);
    formatter->setGeneratesDecimalNumbers(true);
    formatter->setMaximumFractionDigits(MaximumInputFractionDigits);
    formatter->setUsesSignificantDigits(false);
    return formatter;
}

KTNumberFormatter::KTNumberFormatter()
    : KTNumberFormatter(NSLocale::currentLocale(NSLocale::Category::Numbers))
{
}

KTNumberFormatter::KTNumberFormatter(const NSLocale &locale)
    : _locale(locale)
    , _inputFormatter(KTNumberFormatter_Private::createInputFormatterWithLocale(_locale))
    , _numberFormatter(KTNumberFormatter_Private::createNumberFormatterWithLocale(_locale))
{
    NSNumberFormatter &input = _inputFormatter.edit();
    input.setNegativePrefix(u"-"_s);
    input.setNegativeSuffix(u""_s);
    input.setUsesGroupingSeparator(false);
    input.setRoundingMode(NSNumberFormatterRoundHalfUp);
    _numberFormatter.edit().setRoundingMode(NSNumberFormatterRoundHalfUp);
    _numberFormatter.edit().setTextAttributesForNegativeValues(attributesOfHighlight());
    KTNumberFormatter::setFormatNegativeUsingParens(false);
    KTNumberFormatter::setDecimalPlaces(0);
    _inputFormatter.share();
    _numberFormatter.share();
}

KTNumberFormatter::~KTNumberFormatter() = default;

// --- Settings

void KTNumberFormatter::setLocale(const NSLocale &locale)
{
    _locale = locale;
    _inputFormatter.edit().setLocale(locale);
    _numberFormatter.edit().setLocale(locale);
    if (_displaysPercent)
        applyAffixes();
    Q_EMIT localeChanged();
}

void KTNumberFormatter::setHighlightNegative(bool highlightNegative)
{
    _highlightNegative = highlightNegative;
    setTextAttributesForNegativeValues(highlightNegative ? std::optional(attributesOfHighlight())
                                                         : std::nullopt);
    Q_EMIT highlightNegativeChanged();
}

QTextCharFormat KTNumberFormatter::attributesOfHighlight()
{
    static const QTextCharFormat red = [] {
        QTextCharFormat attributes;
        attributes.setForeground(QColor(Qt::red));
        return attributes;
    }();
    return red;
}

std::optional<QTextCharFormat> KTNumberFormatter::textAttributesForNegativeValues() const
{
    return _numberFormatter->textAttributesForNegativeValues();
}

void KTNumberFormatter::setTextAttributesForNegativeValues(
    const std::optional<QTextCharFormat> &attributes)
{
    _numberFormatter.edit().setTextAttributesForNegativeValues(attributes);
}

void KTNumberFormatter::setFormatNegativeUsingParens(bool formatNegativeUsingParens)
{
    _formatNegativeUsingParens = formatNegativeUsingParens;
    applyAffixes();
    Q_EMIT formatNegativeUsingParensChanged();
}

/// Around the sign of percentages, where there is one.
void KTNumberFormatter::applyAffixes()
{
    const bool usesParentheses = _formatNegativeUsingParens;
    NSNumberFormatter &number = _numberFormatter.edit();
    const QString before = _displaysPercent ? number.positivePrefix() : u""_s;
    const QString behind = _displaysPercent ? number.positiveSuffix() : u""_s;
    number.setNegativePrefix((usesParentheses ? u"("_s : u"-"_s) + before);
    number.setNegativeSuffix(behind + (usesParentheses ? u")"_s : u""_s));
}

void KTNumberFormatter::setDisplaysPercent(bool displaysPercent)
{
    if (displaysPercent == _displaysPercent)
        return;
    _displaysPercent = displaysPercent;
    _numberFormatter.edit().setNumberStyle(displaysPercent ? NSNumberFormatterPercentStyle
                                                           : NSNumberFormatterDecimalStyle);
    applyAffixes();
    Q_EMIT displaysPercentChanged();
}

bool KTNumberFormatter::displayThousandsSeparator() const
{
    return _numberFormatter->usesGroupingSeparator();
}

void KTNumberFormatter::setDisplayThousandsSeparator(bool displayThousandsSeparator)
{
    _numberFormatter.edit().setUsesGroupingSeparator(displayThousandsSeparator);
    Q_EMIT displayThousandsSeparatorChanged();
}

uint KTNumberFormatter::decimalPlaces() const
{
    return uint(_numberFormatter->minimumFractionDigits());
}

void KTNumberFormatter::setDecimalPlaces(uint decimalPlaces)
{
    const int count = int(std::min<uint>(decimalPlaces, std::numeric_limits<int>::max()));
    NSNumberFormatter &number = _numberFormatter.edit();
    number.setMinimumFractionDigits(count);
    number.setMaximumFractionDigits(number.minimumFractionDigits());
    Q_EMIT decimalPlacesChanged();
}

void KTNumberFormatter::setDisplayAllDecimalPlaces()
{
    _numberFormatter.edit().setMaximumFractionDigits(KTNumberTexts::AllFractionDigits);
}

void KTNumberFormatter::setUseDisplayStringForEditingString(bool useDisplayStringForEditingString)
{
    _useDisplayStringForEditingString = useDisplayStringForEditingString;
    Q_EMIT useDisplayStringForEditingStringChanged();
}

void KTNumberFormatter::setRejectsUnevenGroups(bool rejectsUnevenGroups)
{
    _rejectsUnevenGroups = rejectsUnevenGroups;
    Q_EMIT rejectsUnevenGroupsChanged();
}

const QString &KTNumberFormatter::unevenGroupsDescription()
{
    static const QString description =
        u"The separators do not stand where groups of digits end or the fraction begins."_s;
    return description;
}

std::optional<QStringList> KTNumberFormatter::optionsKeys() const
{
    return QStringList{kKTFieldOption_decimalPlaces, kKTFieldOption_displayThousandsSeparator,
                       kKTFieldOption_highlightNegative, kKTFieldOption_formatNegativeUsingParens};
}

// --- Display

QString KTNumberFormatter::stringForObjectValue(const QVariant &value) const
{
    if (!NSObject::isNumber(value))
        return {};
    const QString text = KTNumberTexts::nilIfEmpty(_numberFormatter->stringForObjectValue(value));
    KTLog(kLog_FormattersNumbers, 4, u"KTNumberFormatter stringForObjectValue returns:%@", text);
    return text;
}

std::optional<NSAttributedString>
KTNumberFormatter::attributedStringForObjectValue(const QVariant &value,
                                                  const QTextCharFormat &attributes) const
{
    std::optional<NSAttributedString> text =
        _numberFormatter->attributedStringForObjectValue(value, attributes);
    if (text && text->length() == 0)
        text.reset();
    KTLog(kLog_FormattersNumbers, 4, u"KTNumberFormatter attributedStringForObjectValue returns:%@",
          text ? text->string() : QString());
    return text;
}

QString KTNumberFormatter::editingStringForObjectValue(const QVariant &value) const
{
    if (_useDisplayStringForEditingString)
        return stringForObjectValue(value);
    return _inputFormatter->editingStringForObjectValue(_displaysPercent ? inHundredths(value)
                                                                         : value);
}

// --- Reading

/// What the input formatter is set to while it reads; null for what it is set to anyway.
struct KTNumberFormatter::Pass
{
    SharedNumberFormatter::Change prepare;
    bool isForSign; ///< whether it differs from the one before only for texts with a sign
};

namespace {
void inputParentheses(NSNumberFormatter &formatter, const QString &)
{
    formatter.setNegativePrefix(u"("_s);
    formatter.setNegativeSuffix(u")"_s);
}

void inputGroups(NSNumberFormatter &formatter, const QString &)
{
    formatter.setUsesGroupingSeparator(true);
}

void inputParenthesesAndGroups(NSNumberFormatter &formatter, const QString &text)
{
    inputParentheses(formatter, text);
    inputGroups(formatter, text);
}

/// Whether a text has anything that might be a sign, or a part of one.
bool hasMoreThanDigits(const QString &text)
{
    return !std::all_of(text.begin(), text.end(), [](QChar unit) {
        return (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u',' ||
               NumberText::isWhitespace(unit);
    });
}
} // namespace

/// What a pass found.
struct KTNumberFormatter::Attempt
{
    QVariant value;
    NSError error;
    bool wantsError = false;
};

bool KTNumberFormatter::getObjectValue(QVariant *value, const QString &forString,
                                       QString *errorDescription) const
{
    return readsCommonForms() || _displaysPercent
               ? readCommonForms(value, forString, errorDescription)
               : readNumber(value, forString, errorDescription);
}

namespace {
/// Whether the log shows how texts are read.
bool logsReading()
{
    const KTLogger *const logger = KTLogger::sharedLogger();
    return logger->shouldLogComponent(kLog_FormattersNumbers, 4) ||
           logger->shouldLogComponent(kLog_FormattersCurrency, 4);
}

/// Whether a text has letters that no number has. The log shows the passes all the same.
bool hasOtherLetters(const QString &text, const NSLocale &locale)
{
    return !NumberLetters::mayBeNumber(text, locale) && !logsReading();
}
} // namespace

bool KTNumberFormatter::readNumber(QVariant *value, const QString &forString,
                                   QString *errorDescription) const
{
    if (!errorDescription && hasOtherLetters(forString, _locale)) {
        if (value)
            *value = QVariant();
        return false;
    }
    if (_internalGetNumberValue(value, forString, errorDescription))
        return true;
    const QString decomposed = NSString::decomposedStringWithCompatibilityMapping(forString);
    return isWorthASecondTry(decomposed, forString) &&
           _internalGetNumberValue(value, decomposed, errorDescription);
}

bool KTNumberFormatter::_internalGetNumberValue(QVariant *value, const QString &forString,
                                                QString *errorDescription) const
{
    static constexpr Pass passes[] = {{nullptr, false},
                                      {inputParentheses, true},
                                      {inputGroups, false},
                                      {inputParenthesesAndGroups, true}};
    const bool mayHaveSign = hasMoreThanDigits(forString) || logsReading();
    Attempt attempt;
    attempt.wantsError = errorDescription != nullptr;
    const bool isRead = std::any_of(std::begin(passes), std::end(passes), [&](const Pass &pass) {
        return (mayHaveSign || !pass.isForSign) && run(pass, forString, attempt);
    });
    const bool isAccepted = isRead && acceptsGroups(*_inputFormatter, forString, attempt.value);
    if (value)
        *value = isAccepted ? attempt.value : QVariant();
    if (isAccepted)
        return true;
    if (errorDescription) {
        *errorDescription = isRead ? unevenGroupsDescription() : attempt.error.description();
        KTLog(kLog_FormattersNumbers, 4, u"KTNumberFormatter getObjectValue error: %@",
              *errorDescription);
    }
    return false;
}

bool KTNumberFormatter::run(const Pass &pass, const QString &string, Attempt &attempt) const
{
    attempt.error = NSError();
    NSRange range{0, string.size()};
    const auto readWith = [&](const SharedNumberFormatter &formatter) {
        return formatter->getObjectValue(&attempt.value, string, &range,
                                         attempt.wantsError ? &attempt.error : nullptr);
    };
    const bool isRead =
        pass.prepare ? readWith(_inputFormatter.changed(pass.prepare)) : readWith(_inputFormatter);
    const bool isValid = _validateFormattedResult(isRead, range, string);
    KTLog(kLog_FormattersNumbers, 4, u"KTNumberFormatter getObjectValue forString:%@ returns %d",
          string, isValid);
    return isValid;
}

bool KTNumberFormatter::_validateFormattedResult(bool result, NSRange forRange,
                                                 const QString &ofString) const
{
    if (!result)
        return false;
    if (ofString.size() <= forRange.length)
        return true;
    const QStringView text = trimmed(ofString);
    if (text.size() <= forRange.length)
        return true;
    KTLog(kLog_FormattersNumbers, 4, u"extra characters found in number string: %@",
          text.mid(forRange.length));
    return false;
}

bool KTNumberFormatter::acceptsGroups(const NSNumberFormatter &formatter, const QString &text,
                                      const QVariant &value) const
{
    return !_rejectsUnevenGroups ||
           DigitGroups(formatter).fit(text, value.value<NSDecimalNumber>());
}

/// The same text fails again in the same way; only the log shows whether it was tried.
bool KTNumberFormatter::isWorthASecondTry(const QString &decomposed, const QString &original)
{
    return !decomposed.isEmpty() && (decomposed != original || logsReading());
}

// --- Common forms

bool KTNumberFormatter::readCommonForms(QVariant *value, const QString &forString,
                                        QString *errorDescription) const
{
    const auto kind = _displaysPercent ? NumberGrammar::Kind::Percent : NumberGrammar::Kind::Number;
    const TypedDecimal typed =
        NumberGrammar::read(FoldedText(forString), *NumberSigns::of(_locale), kind);
    return answer(typed, forString, value, errorDescription);
}

bool KTNumberFormatter::answer(const TypedDecimal &typed, const QString &text, QVariant *value,
                               QString *errorDescription) const
{
    KTReading reading = typed.reading;
    const QVariant found = typed.isRead() ? QVariant::fromValue(typed.value) : QVariant();
    if (const QString form = typed.isRead() ? shownFormOf(found, text) : QString(); !form.isNull())
        reading.form = form;
    if (!typed.isRead() && errorDescription)
        *errorDescription = typed.isRefused() ? typed.translatedReason() : unreadDescription();
    if (value)
        *value = found;
    setReading(std::move(reading));
    return typed.isRead();
}

QString KTNumberFormatter::unreadDescription() const
{
    return NSBundle::mainBundle().localizedStringForKey(
        u"The text is no number, or has something else in it."_s);
}

QString KTNumberFormatter::reasonForRejecting(const QString &,
                                              const QString &errorDescription) const
{
    // Without common forms, it is the description of an NSError.
    const bool isForPeople =
        !errorDescription.isEmpty() && !errorDescription.startsWith(u"Error Domain="_s);
    return isForPeople ? errorDescription : unreadDescription();
}

QString KTNumberFormatter::shownFormOf(const QVariant &value, const QString &text) const
{
    if (stringForObjectValue(value) == text)
        return u"display"_s;
    return editingStringForObjectValue(value) == text ? u"editing"_s : QString();
}

KT_REGISTER_CLASS(KTNumberFormatter)
