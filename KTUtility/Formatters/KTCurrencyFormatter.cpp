#include "KTCurrencyFormatter.h"

#include "CurrencyCandidates_p.h"
#include "CurrencyNames_p.h"
#include "KTCurrencyFormatter_p.h"
#include "KTNumberTexts_p.h"
#include "NSNumberFormatter_KTCurrency.h"
#include "NumberLetters_p.h"
#include <KTUtility/CommonForms/Numbers/MoneyGrammar_p.h>
#include <KTUtility/CommonForms/Numbers/NumberGrammar_p.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Text/NSStringNormalization.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QRegularExpression>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int DetailLevel = 7;

const QString &replacementCurrency()
{
    static const QString code = u"USD"_s;
    return code;
}

/// The currency of a locale; nil if it has none, which ISO 4217 calls "XXX".
QString currencyOf(const NSLocale &locale)
{
    const QString &code = locale.currencyCode();
    return code == u"XXX" ? QString() : code;
}

/// The same locale with another currency.
NSLocale withCurrency(const NSLocale &locale, const QString &code)
{
    QVariantMap components = NSLocale::componentsFromLocaleIdentifier(locale.localeIdentifier());
    components.insert(NSLocaleCurrencyCode, code);
    return NSLocale(NSLocale::localeIdentifierFromComponents(components));
}

const QString TwoAmounts = u"The separators may stand before the fraction or between groups."_s;

/// A plain number has the signs of money, too, as if its currency stood beside it. What it would be
/// another number with than with those of numbers is read only if the field itself shows it for
/// editing, which is done with these.
TypedDecimal readPlainNumber(const QString &text, const NSFormatter &field, const NSLocale &locale,
                             const QString &code)
{
    const FoldedText folded(text);
    const TypedDecimal plain = NumberGrammar::read(folded, *NumberSigns::of(locale));
    const TypedDecimal money = NumberGrammar::read(folded, *NumberSigns::ofMoney(locale, code));
    if (!plain.isRead() || !money.isRead() || plain.value == money.value)
        return money.isRead() ? money : plain;
    if (field.editingStringForObjectValue(QVariant::fromValue(plain.value)) == text)
        return plain;
    return TypedDecimal::refused(TwoAmounts);
}

bool saysTwoAmounts(const TypedDecimal &typed)
{
    return typed.isRefused() && typed.reason == TwoAmounts;
}
} // namespace

std::unique_ptr<NSNumberFormatter>
KTCurrencyFormatter_Private::createCurrencyFormatterWithLocale(const NSLocale &locale)
{
    auto formatter = std::make_unique<NSNumberFormatter>();
    formatter->setFormatterBehavior(NSNumberFormatterBehavior10_4);
    formatter->setNumberStyle(NSNumberFormatterCurrencyStyle);
    formatter->setGeneratesDecimalNumbers(true);
    formatter->setLocale(locale);
    formatter->setUsesGroupingSeparator(true);
    formatter->setLenient(true);
    return formatter;
}

KTCurrencyFormatter::KTCurrencyFormatter()
    : KTNumberFormatter(NSLocale::currentLocale(NSLocale::Category::Money))
    , _currencyLocale(locale())
{
    filterCurrency();
    using KTCurrencyFormatter_Private::createCurrencyFormatterWithLocale;
    _currencyFormatter = SharedNumberFormatter(createCurrencyFormatterWithLocale(_currencyLocale));
    _currencyInputFormatter =
        SharedNumberFormatter(createCurrencyFormatterWithLocale(_currencyLocale));
    _currencyFormatter.edit().setTextAttributesForNegativeValues(attributesOfHighlight());
    KTCurrencyFormatter::setFormatNegativeUsingParens(false);
    _currencyFormatter.share();
    _currencyInputFormatter.share();
}

KTCurrencyFormatter::~KTCurrencyFormatter() = default;

// --- Currency

void KTCurrencyFormatter::filterCurrency()
{
    KTLog(kLog_FormattersCurrency, DetailLevel, u"filterCurrency _currencyLocale locale ID %@",
          _currencyLocale.localeIdentifier());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"filterCurrency _currencyLocale currency code %@",
          _currencyLocale.currencyCode());
    KTLog(kLog_FormattersCurrency, DetailLevel,
          u"filterCurrency _currencyLocale currency symbol %@", _currencyLocale.currencySymbol());
    if (CurrencyCandidates::isRejected(currencyOf(_currencyLocale)))
        _currencyLocale = withCurrency(_currencyLocale, replacementCurrency());
    KTLog(kLog_FormattersCurrency, DetailLevel,
          u"filterCurrency filter _currencyLocale locale ID %@",
          _currencyLocale.localeIdentifier());
    KTLog(kLog_FormattersCurrency, DetailLevel,
          u"filterCurrency filter _currencyLocale currency code %@",
          _currencyLocale.currencyCode());
    KTLog(kLog_FormattersCurrency, DetailLevel,
          u"filterCurrency filter _currencyLocale currency symbol %@",
          _currencyLocale.currencySymbol());
}

void KTCurrencyFormatter::setCurrencyLocale(const NSLocale &locale)
{
    const ShownCurrency before = shownCurrency();
    _currencyLocale = locale;
    filterCurrency();
    _currencyFormatter.edit().setLocale(_locale); // deliberately that of numbers
    _currencyInputFormatter.edit().setLocale(_locale);
    Q_EMIT currencyLocaleChanged();
    announceChangesSince(before);
}

KTCurrencyFormatter::ShownCurrency KTCurrencyFormatter::shownCurrency() const
{
    return {currencyType(), decimalPlaces()};
}

/// What follows the currency has its own signals.
void KTCurrencyFormatter::announceChangesSince(const ShownCurrency &before)
{
    if (currencyType() != before.type)
        Q_EMIT currencyTypeChanged();
    if (decimalPlaces() != before.decimalPlaces)
        Q_EMIT decimalPlacesChanged();
}

QString KTCurrencyFormatter::currencyType() const
{
    return _currencyFormatter->currencyCode();
}

void KTCurrencyFormatter::setCurrencyType(const QString &code)
{
    QString chosen = code.isNull() ? currencyOf(_locale) : code;
    _askedCurrency = chosen;
    if (isReplaced(chosen))
        chosen = replacementCurrency();
    const uint placesBefore = decimalPlaces();
    const NSLocale formatterLocale = _currencyFormatter->locale();
    QString symbol = formatterLocale.displayNameForKey(NSLocaleCurrencySymbol, chosen);
    if (_locale == formatterLocale && chosen == _locale.currencyCode())
        symbol = _locale.currencySymbol();
    for (SharedNumberFormatter *const shared : {&_currencyFormatter, &_currencyInputFormatter}) {
        NSNumberFormatter &formatter = shared->edit();
        formatter.setCurrencyCode(chosen);
        formatter.setCurrencySymbol(symbol);
        formatter.setNegativePrefix(QString());
        formatter.setNegativeSuffix(QString());
    }
    setFormatNegativeUsingParens(formatNegativeUsingParens());
    Q_EMIT currencyTypeChanged();
    if (decimalPlaces() != placesBefore)
        Q_EMIT decimalPlacesChanged();
}

/// Those that are not offered are for texts that nobody types otherwise.
bool KTCurrencyFormatter::isReplaced(const QString &code) const
{
    return code.isNull() || (!readsCommonForms() && CurrencyCandidates::isRejected(code));
}

void KTCurrencyFormatter::setReadsCommonForms(bool readsCommonForms)
{
    const bool isChange = readsCommonForms != this->readsCommonForms();
    KTNumberFormatter::setReadsCommonForms(readsCommonForms);
    if (isChange && !_askedCurrency.isNull() && CurrencyCandidates::isRejected(_askedCurrency))
        setCurrencyType(QString(_askedCurrency));
}

// --- Settings of the display

std::optional<QTextCharFormat> KTCurrencyFormatter::textAttributesForNegativeValues() const
{
    return _currencyFormatter->textAttributesForNegativeValues();
}

void KTCurrencyFormatter::setTextAttributesForNegativeValues(
    const std::optional<QTextCharFormat> &attributes)
{
    _currencyFormatter.edit().setTextAttributesForNegativeValues(attributes);
}

void KTCurrencyFormatter::setFormatNegativeUsingParens(bool formatNegativeUsingParens)
{
    _formatNegativeUsingParens = formatNegativeUsingParens;
    KTCurrency::setFormatNegativeUsingParens(_currencyFormatter.edit(), formatNegativeUsingParens);
    Q_EMIT formatNegativeUsingParensChanged();
}

bool KTCurrencyFormatter::displayThousandsSeparator() const
{
    return _currencyFormatter->usesGroupingSeparator();
}

void KTCurrencyFormatter::setDisplayThousandsSeparator(bool displayThousandsSeparator)
{
    _currencyFormatter.edit().setUsesGroupingSeparator(displayThousandsSeparator);
    Q_EMIT displayThousandsSeparatorChanged();
}

uint KTCurrencyFormatter::decimalPlaces() const
{
    return uint(_currencyFormatter->minimumFractionDigits());
}

void KTCurrencyFormatter::setDisplayAllDecimalPlaces()
{
    _currencyFormatter.edit().setMaximumFractionDigits(KTNumberTexts::AllFractionDigits);
}

std::optional<QStringList> KTCurrencyFormatter::optionsKeys() const
{
    return QStringList{kKTFieldOption_currencyType, kKTFieldOption_displayThousandsSeparator,
                       kKTFieldOption_highlightNegative, kKTFieldOption_formatNegativeUsingParens};
}

// --- Display

void KTCurrencyFormatter::logLocales() const
{
    const NSLocale &formatterLocale = _currencyFormatter->locale();
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyFormatter locale ID %@",
          formatterLocale.localeIdentifier());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyFormatter currency code %@",
          _currencyFormatter->currencyCode());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyFormatter currency symbol %@",
          _currencyFormatter->currencySymbol());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"");
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyLocale locale ID %@",
          _currencyLocale.localeIdentifier());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyLocale currency code %@",
          _currencyLocale.currencyCode());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_currencyLocale currency symbol %@",
          _currencyLocale.currencySymbol());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"");
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_locale (current) locale ID %@",
          _locale.localeIdentifier());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_locale (current) currency code %@",
          _locale.currencyCode());
    KTLog(kLog_FormattersCurrency, DetailLevel, u"_locale (current) currency symbol %@",
          _locale.currencySymbol());
}

QString KTCurrencyFormatter::stringForObjectValue(const QVariant &value) const
{
    if (!NSObject::isNumber(value))
        return {};
    if (KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersCurrency, DetailLevel))
        logLocales();
    const QString text = KTNumberTexts::nilIfEmpty(_currencyFormatter->stringForObjectValue(value));
    KTLog(kLog_FormattersCurrency, 4, u"KTCurrencyFormatter stringForObjectValue returns:%@", text);
    return text;
}

std::optional<NSAttributedString>
KTCurrencyFormatter::attributedStringForObjectValue(const QVariant &value,
                                                    const QTextCharFormat &attributes) const
{
    std::optional<NSAttributedString> text =
        _currencyFormatter->attributedStringForObjectValue(value, attributes);
    if (text && text->length() == 0)
        text.reset();
    KTLog(kLog_FormattersCurrency, 4,
          u"KTCurrencyFormatter attributedStringForObjectValue returns:%@",
          text ? text->string() : QString());
    return text;
}

// --- Reading

bool KTCurrencyFormatter::getObjectValue(QVariant *value, const QString &forString,
                                         QString *errorDescription) const
{
    return readsCommonForms() ? readCommonMoney(value, forString, errorDescription)
                              : readCurrency(value, forString, errorDescription);
}

/// Without common forms.
bool KTCurrencyFormatter::readCurrency(QVariant *value, const QString &forString,
                                       QString *errorDescription) const
{
    if (_internalGetCurrencyValue(value, forString, errorDescription))
        return true;
    const QString decomposed = NSString::decomposedStringWithCompatibilityMapping(forString);
    return isWorthASecondTry(decomposed, forString) &&
           _internalGetCurrencyValue(value, decomposed, errorDescription);
}

bool KTCurrencyFormatter::_internalGetCurrencyValue(QVariant *value, const QString &forString,
                                                    QString *errorDescription) const
{
    if (readNumber(value, forString, errorDescription))
        return true;
    const bool isUneven = errorDescription && *errorDescription == unevenGroupsDescription();
    const bool isRead = readAmount(value, forString, errorDescription) ||
                        readNamedAmount(value, forString, errorDescription) ||
                        readInParentheses(value, forString, errorDescription);
    if (errorDescription && isUneven)
        *errorDescription = isRead ? QString() : unevenGroupsDescription();
    KTLog(kLog_FormattersCurrency, 4, u"KTCurrencyFormatter getObjectValue forString:%@ returns %d",
          forString, isRead);
    if (!isRead && errorDescription && !errorDescription->isNull())
        KTLog(kLog_FormattersCurrency, 4, u"KTCurrencyFormatter getObjectValue error: %@",
              *errorDescription);
    return isRead;
}

namespace {
void moneyWithMinus(NSNumberFormatter &formatter, const QString &)
{
    KTCurrency::setFormatNegativeUsingParens(formatter, false);
}

void moneyInParentheses(NSNumberFormatter &formatter, const QString &)
{
    KTCurrency::setFormatNegativeUsingParens(formatter, true);
}

void moneyInCurrency(NSNumberFormatter &formatter, const QString &code)
{
    formatter.setCurrencyCode(code);
}
} // namespace

/// As the input formatter reads it, with and without parentheses.
bool KTCurrencyFormatter::readAmount(QVariant *value, const QString &text,
                                     QString *errorDescription) const
{
    const NSNumberFormatter &formatter = *_currencyInputFormatter;
    // Nobody asks why a text is refused when the currencies are tried.
    if (!errorDescription &&
        !NumberLetters::mayBeAmount(text, formatter.locale(), formatter.currencyCode(),
                                    formatter.currencySymbol()))
        return false;
    QVariant amount;
    bool isRead = false;
    for (const auto change : {moneyWithMinus, moneyInParentheses}) {
        _currencyInputFormatter = _currencyInputFormatter.changed(change);
        isRead = _currencyInputFormatter->getObjectValue(&amount, text, errorDescription);
        if (isRead)
            break;
    }
    const bool isAccepted = isRead && acceptsGroups(*_currencyInputFormatter, text, amount);
    if (isAccepted && value)
        *value = amount;
    if (isRead && !isAccepted && errorDescription)
        *errorDescription = unevenGroupsDescription();
    return isAccepted;
}

/// With the currency written in a way that only people understand: "¥" for "￥", "kr" for "kr.",
/// "5 euros", or a sign without the marks of direction that belong to it.
bool KTCurrencyFormatter::readNamedAmount(QVariant *value, const QString &text,
                                          QString *errorDescription) const
{
    const NSNumberFormatter &formatter = *_currencyInputFormatter;
    const QString amount =
        CurrencyNames::replacedByCode(text, formatter.locale(), formatter.currencyCode());
    return !amount.isNull() && amount != text && readAmount(value, amount, errorDescription);
}

/// Parentheses around what reads with a minus: "(5 euros)", whatever form of them the locale has.
bool KTCurrencyFormatter::readInParentheses(QVariant *value, const QString &text,
                                            QString *errorDescription) const
{
    const QString typed = text.trimmed();
    if (typed.size() < 3 || !typed.startsWith(u'(') || !typed.endsWith(u')'))
        return false;
    const QString amount = typed.sliced(1, typed.size() - 2).trimmed();
    // A second sign is a mistake: "((5))", "(-5)".
    static const QRegularExpression sign(u"[-+()\\x{2212}\\x{2010}-\\x{2015}\\x{FF0B}\\x{FF0D}]"_s);
    if (amount.contains(sign))
        return false;
    const QString negative = u'-' + amount;
    return readAmount(value, negative, errorDescription) ||
           readNamedAmount(value, negative, errorDescription);
}

bool KTCurrencyFormatter::readCommonMoney(QVariant *value, const QString &forString,
                                          QString *errorDescription) const
{
    const FoldedText text(forString);
    const NSNumberFormatter &formatter = *_currencyInputFormatter;
    const QString code = formatter.currencyCode();
    TypedDecimal typed = readPlainNumber(forString, *this, _locale, code);
    if (!typed.isRead() && !saysTwoAmounts(typed)) {
        const TypedDecimal money =
            MoneyGrammar::read(text, {formatter.locale(), code, formatter.currencySymbol()});
        if (!money.isUnknown())
            typed = money;
    }
    return answer(typed, forString, value, errorDescription);
}

QString KTCurrencyFormatter::unreadDescription() const
{
    return NSBundle::mainBundle()
        .localizedStringForKey(u"The text is no amount in %1, or has something else in it."_s)
        .arg(currencyType());
}

bool KTCurrencyFormatter::readsInCurrency(QVariant *value, const QString &text, const QString &code)
{
    KTLog(kLog_FormattersCurrency, 4, u"currencyCode: %@", code);
    _currencyInputFormatter = _currencyInputFormatter.changed(moneyInCurrency, code);
    return getObjectValue(value, text);
}

KTCurrencyFormatter *KTCurrencyFormatter::adjusted(const QString &code, const QVariant &value,
                                                   QVariantMap *options)
{
    const std::optional<NSAttributedString> attributed = attributedStringForObjectValue(value);
    KTLog(kLog_FormattersCurrency, 4, u"attributed value: %@",
          attributed ? attributed->string() : QString());
    KTLog(kLog_FormattersCurrency, 4, u"string value: %@", stringForObjectValue(value));
    if (options)
        options->insert(kKTFieldOption_currencyType, code);
    const ShownCurrency before = shownCurrency();
    _askedCurrency = code;
    _currencyFormatter.edit().setCurrencyCode(code);
    announceChangesSince(before);
    return this;
}

KTCurrencyFormatter *KTCurrencyFormatter::adjustForValue(const QString &value,
                                                         QVariantMap *withOptions)
{
    QVariant amount;
    if (getObjectValue(&amount, value))
        return nullptr;
    // Currencies that the text does not name cannot read it; they are tried for the log only.
    const bool isLogged = KTLogger::sharedLogger()->shouldLogComponent(kLog_FormattersCurrency, 4);
    const QStringList codes =
        isLogged ? NSLocale::commonISOCurrencyCodes()
                 : CurrencyCandidates::of(_currencyInputFormatter->locale(), value);
    for (const QString &code : codes) {
        if (!CurrencyCandidates::isRejected(code) && readsInCurrency(&amount, value, code))
            return adjusted(code, amount, withOptions);
    }
    _currencyInputFormatter =
        _currencyInputFormatter.changed(moneyInCurrency, NSLocale::commonISOCurrencyCodes().last());
    return nullptr;
}

KT_REGISTER_CLASS(KTCurrencyFormatter)
