#include "DurationWords_p.h"

#include <KTUtility/CommonForms/Text/SharedTables_p.h>
#include <KTUtility/CommonForms/Text/Stems_p.h>

#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/listformatter.h>
#include <unicode/measunit.h>
#include <unicode/numberformatter.h>
#include <unicode/plurrule.h>
#include <unicode/reldatefmt.h>

#include <algorithm>
#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr std::array AllUnits{
    DurationUnit::Year,       DurationUnit::Month,       DurationUnit::Week,
    DurationUnit::Day,        DurationUnit::Hour,        DurationUnit::Minute,
    DurationUnit::Second,     DurationUnit::Millisecond, DurationUnit::Microsecond,
    DurationUnit::Nanosecond,
};

struct ExtraUnit
{
    const char *language;
    QStringView word;
    DurationUnit unit;
};

// Words that CLDR's units lack. Sources: the dictionaries and standards behind each row.
constexpr ExtraUnit ExtraUnits[] = {
    {"en", u"hrs", DurationUnit::Hour},       // Oxford English Dictionary
    {"en", u"mins", DurationUnit::Minute},    // the same
    {"en", u"secs", DurationUnit::Second},    // the same
    {"en", u"us", DurationUnit::Microsecond}, // ISO 2955, where there is no Greek letter
    {"en", u"msecs", DurationUnit::Millisecond},
    {"en", u"msec", DurationUnit::Millisecond},
    {"en", u"yrs", DurationUnit::Year},                           // Oxford English Dictionary
    {"en", u"mos", DurationUnit::Month},                          // Merriam-Webster
    {"nl", u"uren", DurationUnit::Hour},                          // Woordenlijst Nederlandse Taal
    {"zh", u"\u65F6", DurationUnit::Hour},                        // GB/T 3102.1
    {"zh", u"\u6642", DurationUnit::Hour},                        // the same, traditional
    {"zh", u"\u949F\u5934", DurationUnit::Hour},                  // Xiandai Hanyu Cidian
    {"zh", u"\u5206", DurationUnit::Minute},                      // GB/T 3102.1
    {"ru", u"\u0441\u0443\u0442\u043A\u0438", DurationUnit::Day}, // GOST 8.417
    {"ru", u"\u0441\u0443\u0442", DurationUnit::Day},             // the same
};

struct ExtraCount
{
    const char *language;
    QStringView words;
    DurationCount count;
};

using Place = DurationCount::Place;

// Counts in words, which CLDR has for spelling numbers out only: the articles and halves that
// dictionaries of each language give with its words for hours.
constexpr ExtraCount ExtraCounts[] = {
    {"en", u"a", {Place::Before, 1, 1}},
    {"en", u"an", {Place::Before, 1, 1}},
    {"en", u"one", {Place::Before, 1, 1}},
    {"en", u"half", {Place::Before, 1, 2}},
    {"en", u"half a", {Place::Before, 1, 2}},
    {"en", u"half an", {Place::Before, 1, 2}},
    {"en", u"a half", {Place::Before, 1, 2}},
    {"en", u"quarter of an", {Place::Before, 1, 4}},
    {"en", u"a quarter of an", {Place::Before, 1, 4}},
    {"en", u"three quarters of an", {Place::Before, 3, 4}},
    {"en", u"one and a half", {Place::Before, 3, 2}},
    {"en", u"and a half", {Place::Behind, 1, 2}},
    {"en", u"and a quarter", {Place::Behind, 1, 4}},
    {"de", u"ein", {Place::Before, 1, 1}},
    {"de", u"eine", {Place::Before, 1, 1}},
    {"de", u"einen", {Place::Before, 1, 1}},
    {"de", u"halbe", {Place::Before, 1, 2}},
    {"de", u"eine halbe", {Place::Before, 1, 2}},
    {"de", u"anderthalb", {Place::Before, 3, 2}},
    {"de", u"eineinhalb", {Place::Before, 3, 2}},
    {"fr", u"un", {Place::Before, 1, 1}},
    {"fr", u"une", {Place::Before, 1, 1}},
    {"fr", u"demi", {Place::Before, 1, 2}},
    {"fr", u"une demi", {Place::Before, 1, 2}},
    {"fr", u"et demie", {Place::Behind, 1, 2}},
    {"fr", u"et demi", {Place::Behind, 1, 2}},
    {"es", u"un", {Place::Before, 1, 1}},
    {"es", u"una", {Place::Before, 1, 1}},
    {"es", u"media", {Place::Before, 1, 2}},
    {"es", u"medio", {Place::Before, 1, 2}},
    {"es", u"y media", {Place::Behind, 1, 2}},
    {"es", u"y medio", {Place::Behind, 1, 2}},
    {"it", u"un", {Place::Before, 1, 1}},
    {"it", u"una", {Place::Before, 1, 1}},
    {"it", u"un'", {Place::Before, 1, 1}},
    {"it", u"mezza", {Place::Before, 1, 2}},
    {"it", u"mezz'", {Place::Before, 1, 2}},
    {"it", u"e mezza", {Place::Behind, 1, 2}},
    {"it", u"e mezzo", {Place::Behind, 1, 2}},
    {"pt", u"um", {Place::Before, 1, 1}},
    {"pt", u"uma", {Place::Before, 1, 1}},
    {"pt", u"meia", {Place::Before, 1, 2}},
    {"pt", u"e meia", {Place::Behind, 1, 2}},
    {"pt", u"e meio", {Place::Behind, 1, 2}},
    {"nl", u"een", {Place::Before, 1, 1}},
    {"nl", u"half", {Place::Before, 1, 2}},
    {"nl", u"een half", {Place::Before, 1, 2}},
    {"nl", u"anderhalf", {Place::Before, 3, 2}},
    {"sv", u"en", {Place::Before, 1, 1}},
    {"sv", u"ett", {Place::Before, 1, 1}},
    {"sv", u"en halv", {Place::Before, 1, 2}},
    {"da", u"en", {Place::Before, 1, 1}},
    {"da", u"et", {Place::Before, 1, 1}},
    {"da", u"en halv", {Place::Before, 1, 2}},
    {"da", u"halvanden", {Place::Before, 3, 2}},
    {"nb", u"en", {Place::Before, 1, 1}},
    {"nb", u"et", {Place::Before, 1, 1}},
    {"nb", u"en halv", {Place::Before, 1, 2}},
    {"nb", u"halvannen", {Place::Before, 3, 2}},
    {"ru", u"\u043F\u043E\u043B\u0442\u043E\u0440\u0430", {Place::Before, 3, 2}},
    {"pl", u"p\u00F3\u0142", {Place::Before, 1, 2}},
    {"pl", u"p\u00F3\u0142torej", {Place::Before, 3, 2}},
    {"zh", u"\u534A", {Place::Before, 1, 2}},
    {"zh", u"\u534A\u4E2A", {Place::Before, 1, 2}},
    {"ko", u"\uBC18", {Place::Before, 1, 2}},
    {"ja", u"\u534A", {Place::Behind, 1, 2}},
};

/// Their nouns have a singular and a plural, and no more.
constexpr const char *LanguagesWithoutCases[] = {"en", "fr",  "es", "it", "pt", "ca",
                                                 "gl", "ast", "oc", "nl", "af", "fy"};

/// Whether a word is another case of a name, and not one that only begins like it ("weekend",
/// "secondary"). 0 if it is not, else how many letters both have in common.
qsizetype stemOfCase(QStringView word, QStringView name)
{
    constexpr qsizetype MaximumEnding = 2;
    const qsizetype stem = commonStem(word, name);
    return word.size() - stem <= MaximumEnding && name.size() - stem < MaximumEnding ? stem : 0;
}

icu::MeasureUnit measureUnit(DurationUnit unit)
{
    switch (unit) {
    case DurationUnit::Year:
        return icu::MeasureUnit::getYear();
    case DurationUnit::Month:
        return icu::MeasureUnit::getMonth();
    case DurationUnit::Week:
        return icu::MeasureUnit::getWeek();
    case DurationUnit::Day:
        return icu::MeasureUnit::getDay();
    case DurationUnit::Hour:
        return icu::MeasureUnit::getHour();
    case DurationUnit::Minute:
        return icu::MeasureUnit::getMinute();
    case DurationUnit::Second:
        return icu::MeasureUnit::getSecond();
    case DurationUnit::Millisecond:
        return icu::MeasureUnit::getMillisecond();
    case DurationUnit::Microsecond:
        return icu::MeasureUnit::getMicrosecond();
    case DurationUnit::Nanosecond:
        return icu::MeasureUnit::getNanosecond();
    }
    return {};
}

constexpr std::pair<DurationUnit, URelativeDateTimeUnit> RelativeUnits[] = {
    {DurationUnit::Year, UDAT_REL_UNIT_YEAR},     {DurationUnit::Month, UDAT_REL_UNIT_MONTH},
    {DurationUnit::Week, UDAT_REL_UNIT_WEEK},     {DurationUnit::Day, UDAT_REL_UNIT_DAY},
    {DurationUnit::Hour, UDAT_REL_UNIT_HOUR},     {DurationUnit::Minute, UDAT_REL_UNIT_MINUTE},
    {DurationUnit::Second, UDAT_REL_UNIT_SECOND},
};

/// What stands behind the number of "in 2 days" or "2 days ago"; nothing if there is no number.
QString textBehindNumber(const icu::RelativeDateTimeFormatter &formatter, int offset,
                         URelativeDateTimeUnit unit)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    formatter.formatNumeric(offset, unit, text, status);
    const QString folded = FoldedText::folded(ICU::stringOf(text));
    const QString number = QString::number(std::abs(offset));
    const qsizetype index = folded.indexOf(number);
    return U_SUCCESS(status) && index >= 0 ? folded.mid(index + number.size()).trimmed()
                                           : QString();
}

/// What stands behind the numbers of a time to come and of one gone by.
struct RelativeTexts
{
    QString future;
    QString past;

    /// The units: the first words, or what both texts begin with where words have no blanks.
    QStringList words() const
    {
        if (future.isEmpty() || past.isEmpty())
            return {};
        const auto differing =
            std::mismatch(future.begin(), future.end(), past.begin(), past.end());
        const qsizetype length = differing.first - future.begin();
        if (length == 0 || isWithinWord(future, length) || isWithinWord(past, length))
            return future[0] == past[0] && future[0].isLetter()
                       ? QStringList{future.section(u' ', 0, 0), past.section(u' ', 0, 0)}
                       : QStringList();
        return {future.left(length).trimmed()};
    }

private:
    static bool isWithinWord(const QString &text, qsizetype length)
    {
        return !isWordEnd(text, length);
    }
};

/// A count for each plural of a language: 1, 2, 5 in Polish.
std::vector<int> countsOfAllPlurals(const QByteArray &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::PluralRules> rules(
        icu::PluralRules::forLocale(icu::Locale(locale.constData()), status));
    const std::unique_ptr<icu::StringEnumeration> keywords(
        U_SUCCESS(status) ? rules->getKeywords(status) : nullptr);
    std::vector<int> counts{1, 2};
    while (const icu::UnicodeString *keyword = keywords ? keywords->snext(status) : nullptr) {
        double sample = 0;
        const bool isSampled = rules->getSamples(*keyword, &sample, 1, status) > 0;
        if (isSampled && sample == int(sample) && sample > 2)
            counts.push_back(int(sample));
    }
    return counts;
}

/// A number with a unit, and where each of them stands.
struct WrittenCount
{
    QString unit;
    bool hasNumber = false;
};

WrittenCount taken(const icu::number::FormattedNumber &formatted)
{
    UErrorCode status = U_ZERO_ERROR;
    const QString text = ICU::stringOf(formatted.toTempString(status));
    icu::ConstrainedFieldPosition position;
    position.constrainField(UFIELD_CATEGORY_NUMBER, UNUM_INTEGER_FIELD);
    if (!formatted.nextPosition(position, status) || U_FAILURE(status))
        return {text, false};
    const QString before = text.left(position.getStart()).trimmed();
    const QString behind = text.mid(position.getLimit()).trimmed();
    // A unit on both sides of its number is not one word.
    return {!before.isEmpty() && !behind.isEmpty() ? QString() : before + behind, true};
}
} // namespace

QString KTPrivate::nameOf(DurationUnit unit)
{
    return QString::fromLatin1(measureUnit(unit).getSubtype());
}

NSDecimalNumber KTPrivate::secondsOf(DurationUnit unit)
{
    constexpr std::array<quint64, 7> Seconds{0, 0, 604'800, 86'400, 3'600, 60, 1};
    const int thousandths = std::max(0, int(unit) - int(DurationUnit::Second));
    const quint64 seconds = Seconds[size_t(std::min(unit, DurationUnit::Second))];
    return NSDecimalNumber::decimalNumberWithMantissa(seconds, -3 * thousandths, false);
}

std::shared_ptr<const DurationWords> DurationWords::of(const NSLocale &locale)
{
    static SharedTables<DurationWords> tables;
    const QString identifier = locale.localeIdentifier().section(u'@', 0, 0);
    return tables.tableOf(identifier, [&] { return DurationWords(identifier.toLatin1()); });
}

const DurationWords &DurationWords::english()
{
    static const std::shared_ptr<const DurationWords> words = of(NSLocale(u"en"_s));
    return *words;
}

DurationWords::DurationWords(const QByteArray &locale)
{
    for (const DurationUnit unit : AllUnits)
        addUnits(unit, locale);
    addRelativeUnits(locale);
    const QByteArray language = icu::Locale(locale.constData()).getLanguage();
    addExtras(language);
    _hasCases = std::find(std::begin(LanguagesWithoutCases), std::end(LanguagesWithoutCases),
                          language) == std::end(LanguagesWithoutCases);
    addConjunction(locale);
    std::sort(_names.begin(), _names.end());
}

/// In all widths, with counts of every plural.
void DurationWords::addUnits(DurationUnit unit, const QByteArray &locale)
{
    using namespace icu::number;
    const std::vector<int> samples = countsOfAllPlurals(locale);
    for (const UNumberUnitWidth width :
         {UNUM_UNIT_WIDTH_FULL_NAME, UNUM_UNIT_WIDTH_SHORT, UNUM_UNIT_WIDTH_NARROW}) {
        const LocalizedNumberFormatter formatter =
            NumberFormatter::withLocale(icu::Locale(locale.constData()))
                .unit(measureUnit(unit))
                .unitWidth(width);
        for (const int count : samples) {
            UErrorCode status = U_ZERO_ERROR;
            const WrittenCount written = taken(formatter.formatInt(count, status));
            if (U_SUCCESS(status))
                addUnit(written.unit, {unit, written.hasNumber ? 0 : count});
        }
    }
}

/// The words of "in 2 days" and "2 days ago", which some languages have in cases or instead of the
/// unit's own ("doby" and "dni" in Polish).
void DurationWords::addRelativeUnits(const QByteArray &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::RelativeDateTimeFormatter formatter(icu::Locale(locale.constData()), status);
    if (U_FAILURE(status))
        return;
    for (const auto &[unit, relativeUnit] : RelativeUnits) {
        for (const int count : {1, 2, 5}) {
            const RelativeTexts texts{textBehindNumber(formatter, count, relativeUnit),
                                      textBehindNumber(formatter, -count, relativeUnit)};
            for (const QString &word : texts.words())
                addUnit(word, {unit});
        }
    }
}

/// Also without a final full stop.
void DurationWords::addUnit(const QString &word, const DurationWord &meaning)
{
    units.add(word, meaning);
    QString folded = FoldedText::folded(word);
    if (folded.endsWith(u'.')) {
        folded.chop(1);
        units.add(folded, meaning);
    }
    if (meaning.count == 0 && !folded.isEmpty())
        _names.emplace_back(folded, meaning.unit);
}

void DurationWords::addExtras(const QByteArray &language)
{
    for (const ExtraUnit &extra : ExtraUnits) {
        if (language == extra.language)
            addUnit(extra.word.toString(), {extra.unit});
    }
    for (const ExtraCount &extra : ExtraCounts) {
        if (language == extra.language)
            counts.add(extra.words, extra.count);
    }
}

void DurationWords::addConjunction(const QByteArray &locale)
{
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::ListFormatter> formatter(icu::ListFormatter::createInstance(
        icu::Locale(locale.constData()), ULISTFMT_TYPE_AND, ULISTFMT_WIDTH_WIDE, status));
    if (U_FAILURE(status))
        return;
    const icu::UnicodeString items[] = {u"1", u"2"};
    icu::UnicodeString list;
    formatter->format(items, 2, list, status);
    const QString text = ICU::stringOf(list);
    if (U_SUCCESS(status) && text.startsWith(u'1') && text.endsWith(u'2'))
        conjunctions.add(QStringView(text).sliced(1).chopped(1).trimmed(), 0);
}

std::optional<DurationUnit> DurationWords::derived(QStringView word) const
{
    const std::optional<DurationUnit> unit = _hasCases ? inflected(word) : std::nullopt;
    return unit ? unit : abbreviated(word);
}

/// Those that begin with the same letter.
std::span<const DurationWords::Name> DurationWords::namesLike(QStringView word) const
{
    const auto isBefore = [](const Name &left, QChar right) { return left.first.front() < right; };
    const auto isBehind = [](QChar left, const Name &right) { return left < right.first.front(); };
    if (word.isEmpty())
        return {};
    const auto begin = std::lower_bound(_names.begin(), _names.end(), word.front(), isBefore);
    return {begin, std::upper_bound(begin, _names.end(), word.front(), isBehind)};
}

/// The one whose names have the longest stem in common with a word.
std::optional<DurationUnit> DurationWords::inflected(QStringView word) const
{
    qsizetype longest = 0;
    std::optional<DurationUnit> unit;
    for (const auto &[name, meaning] : namesLike(word)) {
        const qsizetype stem = stemOfCase(word, name);
        if (stem > 0 && stem == longest && unit && *unit != meaning)
            unit.reset();
        if (stem > longest) {
            longest = stem;
            unit = meaning;
        }
    }
    return unit;
}

/// The one whose names begin with a word of at least three letters; "mil" is a thousand, and no
/// thousandth.
std::optional<DurationUnit> DurationWords::abbreviated(QStringView word) const
{
    constexpr qsizetype MinimumLength = 3;
    constexpr qsizetype MinimumLengthOfSmall = 5;
    std::optional<DurationUnit> unit;
    for (const auto &[name, meaning] : namesLike(word)) {
        const bool isSmall = meaning > DurationUnit::Second;
        if (word.size() < (isSmall ? MinimumLengthOfSmall : MinimumLength) ||
            !name.startsWith(word))
            continue;
        if (unit && *unit != meaning)
            return std::nullopt;
        unit = meaning;
    }
    return unit;
}
