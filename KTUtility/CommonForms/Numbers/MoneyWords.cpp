#include "MoneyWords_p.h"

#include <KTUtility/CommonForms/Text/SharedTables_p.h>
#include <KTUtility/CommonForms/Text/Stems_p.h>

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/ucurr.h>
#include <unicode/uscript.h>

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype CodeLength = 3;
constexpr qsizetype RegionLength = 2;

struct ExtraSign
{
    QStringView code;
    QStringView text;
};

// What CLDR lacks, each with where it is from.
constexpr ExtraSign ExtraSigns[] = {
    {u"INR", u"Rs"},                       // the sign of rupees before 2010
    {u"INR", u"Re"},                       // the same for one
    {u"INR", u"\u0930\u0941"},             // the same in Devanagari
    {u"RUB", u"\u0440\u0443\u0431"},       // "руб.": dictionaries of Russian
    {u"RUB", u"\u0440"},                   // "р.": CLDR's sign of the rouble before 1998
    {u"BYN", u"\u0440\u0443\u0431"},       // "руб.": dictionaries of Russian
    {u"UAH", u"\u0433\u0440\u043D"},       // "грн.": dictionaries of Ukrainian
    {u"BGN", u"\u043B\u0432"},             // "лв.": CLDR's sign in Bulgarian
    {u"CNY", u"\u5143"},                   // "元": what the notes say
    {u"CNY", u"\u5757"},                   // "块": the word in speech
    {u"CNY", u"RMB"},                      // of "renminbi", the currency's name
    {u"CNY", u"renminbi"},                 // the currency's name
    {u"CNY", u"\uC704\uC548"},             // "위안": CLDR's name without "화", "currency"
    {u"TWD", u"\u5143"},                   // "元": what the notes say
    {u"TWD", u"\u53F0\u5E63"},             // "台幣", short for CLDR's name
    {u"TWD", u"\u53F0\u5E01"},             // the same, simplified
    {u"HKD", u"\u5143"},                   // "元": what the notes say
    {u"HKD", u"\u6E2F\u5E01"},             // "港币", the currency's name
    {u"HKD", u"\u6E2F\u5E63"},             // the same, traditional
    {u"USD", u"\u7F8E\u91D1"},             // "美金", the currency's name beside CLDR's
    {u"JPY", u"\u5186"},                   // "円": what the notes say
    {u"JPY", u"\\"},                       // JIS X 0201 has the yen sign at this place
    {u"KRW", u"\uC6D0"},                   // "원": what the notes say
    {u"KRW", u"\\"},                       // KS X 1003 has the won sign at this place
    {u"ILS", u"\u05E9\u05F4\u05D7"},       // "ש״ח": of CLDR's name
    {u"ILS", u"\u05E9\"\u05D7"},           // the same with the keyboard's quotation mark
    {u"EUR", u"\u05D9\u05D5\u05E8\u05D5"}, // "יורו", another spelling of CLDR's name
    {u"GBP", u"sterling"},                 // the currency's name in full is pound sterling
    {u"CAD", u"C$"},                       // beside CLDR's "CA$"
    {u"SGD", u"S$"},                       // the sign of the Monetary Authority of Singapore
    {u"TRY", u"TL"},                       // of "Türk lirası", the sign before 2012
    {u"CHF", u"Fr"},                       // of "Franken", "franc", "franco"
    {u"CHF", u"SFr"},                      // the same with the country
    {u"PLN", u"zl"},                       // "zł" without its stroke
    {u"VND", u"\u0111"},                   // of "đồng"
    {u"VND", u"d"},                        // "đ" without its stroke
    {u"VND", u"dong"},                     // the same
};

QString currencyNameOf(const QString &code, const QByteArray &locale, UCurrNameStyle style)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name = ucurr_getName(reinterpret_cast<const UChar *>(code.utf16()),
                                            locale.constData(), style, nullptr, &length, &status);
    return U_SUCCESS(status) ? QString(reinterpret_cast<const QChar *>(name), length) : QString();
}

QString pluralNameOf(const QString &code, const QByteArray &locale, const char *plural)
{
    UErrorCode status = U_ZERO_ERROR;
    int32_t length = 0;
    const UChar *const name =
        ucurr_getPluralName(reinterpret_cast<const UChar *>(code.utf16()), locale.constData(),
                            nullptr, plural, &length, &status);
    return U_SUCCESS(status) ? QString(reinterpret_cast<const QChar *>(name), length) : QString();
}

QStringList namesOf(const QString &code, const QByteArray &locale)
{
    constexpr std::array Plurals{"zero", "one", "two", "few", "many", "other"};
    QStringList names{currencyNameOf(code, locale, UCURR_LONG_NAME)};
    for (const char *plural : Plurals)
        names.append(pluralNameOf(code, locale, plural));
    names.removeAll(code);
    names.removeDuplicates();
    return names;
}

QByteArray identifierOf(const NSLocale &locale)
{
    return locale.localeIdentifier().section(u'@', 0, 0).toLatin1();
}

QString regionName(const QString &code, const QByteArray &locale)
{
    const QByteArray region = "und_" + code.left(RegionLength).toLatin1();
    return ICU::stringWrittenBy([&](icu::UnicodeString &text) {
        icu::Locale(region.constData()).getDisplayCountry(icu::Locale(locale.constData()), text);
    });
}

using ForeignWords = PhraseTable<QString>;

ForeignWords namesOfAllCurrencies(const NSLocale &locale)
{
    ForeignWords words;
    const QStringList codes = NSLocale::commonISOCurrencyCodes();
    for (const QByteArray &language : {identifierOf(locale), QByteArray("en")}) {
        for (const QString &code : codes) {
            const QStringList names = namesOf(code, language);
            for (const QString &name : names)
                words.add(name, code);
        }
    }
    return words;
}

ForeignWords wordsOfAllCurrencies(const NSLocale &locale)
{
    ForeignWords words;
    const QStringList codes = NSLocale::commonISOCurrencyCodes();
    for (const QByteArray &language : {identifierOf(locale), QByteArray("en")}) {
        for (const QString &code : codes) {
            words.add(code, code);
            words.add(currencyNameOf(code, language, UCURR_SYMBOL_NAME), code);
            const QStringList names = namesOf(code, language);
            for (const QString &name : names)
                words.add(name, code);
        }
    }
    return words;
}
} // namespace

std::shared_ptr<const MoneyWords> MoneyWords::of(const NSLocale &locale, const QString &code)
{
    static SharedTables<MoneyWords> tables;
    return tables.tableOf(locale.localeIdentifier() + u' ' + code,
                          [&] { return MoneyWords(locale, code); });
}

MoneyWords::MoneyWords(const NSLocale &locale, const QString &code)
{
    _phrases.add(code, MoneyWord::Code);
    if (code.size() != CodeLength)
        return;
    for (const QByteArray &language : {identifierOf(locale), QByteArray("en")}) {
        addSigns(code, language);
        const QStringList names = namesOf(code, language);
        for (const QString &name : names)
            addName(name, code);
        // English has no cases but the plurals that are listed.
        if (!language.startsWith("en"))
            addStems(names, code);
        _phrases.add(regionName(code, language), MoneyWord::Qualifier);
    }
    _phrases.add(locale.displayNameForKey(NSLocaleCurrencySymbol, code), MoneyWord::Sign);
    for (const ExtraSign &extra : ExtraSigns) {
        if (code == extra.code)
            _phrases.add(extra.text, MoneyWord::Sign);
    }
}

/// Also without a final full stop, and "US$" and "$US" for "$".
void MoneyWords::addSigns(const QString &code, const QByteArray &locale)
{
    for (const UCurrNameStyle style : {UCURR_SYMBOL_NAME, UCURR_NARROW_SYMBOL_NAME,
                                       UCURR_FORMAL_SYMBOL_NAME, UCURR_VARIANT_SYMBOL_NAME}) {
        const QString sign = currencyNameOf(code, locale, style);
        if (sign == code || sign.isEmpty())
            continue;
        _phrases.add(sign, MoneyWord::Sign);
        // Marks that nobody sees may stand behind it.
        const QString folded = FoldedText::folded(sign);
        if (folded.endsWith(u'.'))
            _phrases.add(QStringView(folded).chopped(1), MoneyWord::Sign);
        _phrases.add(QString(code.left(RegionLength) + sign), MoneyWord::Sign);
        _phrases.add(QString(sign + code.left(RegionLength)), MoneyWord::Sign);
    }
}

/// Names that are written without blanks end in their units: "米ドル".
void MoneyWords::addUnitsWithin(const QString &name)
{
    constexpr qsizetype MinimumLength = 2;
    UErrorCode status = U_ZERO_ERROR;
    for (qsizetype index = 1; index + MinimumLength <= name.size(); ++index) {
        const UScriptCode script = uscript_getScript(name[index].unicode(), &status);
        if (script == USCRIPT_HAN || script == USCRIPT_KATAKANA || script == USCRIPT_HIRAGANA)
            _phrases.add(QStringView(name).sliced(index), MoneyWord::Name);
    }
}

/// A name with its words: its unit stands first or last ("US dollars", "dollars américains").
void MoneyWords::addName(const QString &name, const QString &code)
{
    _phrases.add(name, MoneyWord::Name);
    _phrases.add(name, MoneyWord::FullName);
    addUnitsWithin(name);
    const QString region = FoldedText::folded(code.left(RegionLength));
    const QStringList words = FoldedText::folded(name).replace(u'-', u' ').split(u' ');
    for (const QString &word : words) {
        const bool isAtEnd = &word == &words.first() || &word == &words.last();
        const bool isUnit = isAtEnd && word != region;
        if (word.size() < CodeLength - 1)
            continue;
        _phrases.add(word, isUnit ? MoneyWord::Name : MoneyWord::Qualifier);
    }
}

/// The unit's word is the one that differs between the plurals: the first one of "francos CFA
/// de África Central". Where both ends differ, or none, it may be either.
void MoneyWords::addStems(const QStringList &names, const QString &code)
{
    QStringList firsts;
    QStringList lasts;
    for (const QString &name : names) {
        const QStringList words = FoldedText::folded(name).replace(u'-', u' ').split(u' ');
        firsts.append(words.first());
        lasts.append(words.last());
    }
    firsts.removeDuplicates();
    lasts.removeDuplicates();
    const bool isFirst = firsts.size() > 1 || lasts.size() < 2;
    const bool isLast = lasts.size() > 1 || firsts.size() < 2;
    _names += (isFirst ? firsts : QStringList()) + (isLast ? lasts : QStringList());
    _names.removeAll(FoldedText::folded(code.left(RegionLength)));
    _names.removeDuplicates();
}

bool MoneyWords::isInflectedName(QStringView word) const
{
    return std::any_of(_names.begin(), _names.end(),
                       [word](const QString &name) { return commonStem(word, name) > 0; });
}

QString KTPrivate::currencyNamedIn(const NSLocale &locale, QStringView folded)
{
    static SharedTables<ForeignWords> tables;
    const std::shared_ptr<const ForeignWords> words = tables.tableOf(
        locale.localeIdentifier(), [&locale] { return wordsOfAllCurrencies(locale); });
    for (qsizetype index = 0; index < folded.size(); ++index) {
        const ForeignWords::Match match =
            isWordEnd(folded, index) ? words->longestAt(folded, index) : ForeignWords::Match();
        if (match.length > 0)
            return match.meanings.size() == 1 ? match.meanings.front() : QString();
    }
    return {};
}

qsizetype KTPrivate::otherCurrencyAt(const NSLocale &locale, const QString &code,
                                     QStringView folded, qsizetype position)
{
    static SharedTables<ForeignWords> tables;
    const std::shared_ptr<const ForeignWords> names = tables.tableOf(
        locale.localeIdentifier(), [&locale] { return namesOfAllCurrencies(locale); });
    const ForeignWords::Match match = names->longestAt(folded, position);
    const bool isOwn =
        std::find(match.meanings.begin(), match.meanings.end(), code) != match.meanings.end();
    return isOwn ? 0 : match.length;
}
