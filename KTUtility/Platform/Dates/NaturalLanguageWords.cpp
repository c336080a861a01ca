#include "NaturalLanguageWords_p.h"

#include "DateCharacters_p.h"
#include "NSCalendar.h"
#include <KTUtility/Platform/Text/ICU_p.h>

#include <unicode/reldatefmt.h>

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

using namespace KTPrivate;

namespace {
using Meaning = NaturalLanguageMeaning;
using Formatter = icu::RelativeDateTimeFormatter;

/// A unit in which ICU counts, as it is named in its three enumerations.
struct Unit
{
    NSCalendarUnits unit;
    UDateRelativeUnit relative;
    UDateAbsoluteUnit absolute;
    bool hasAbsolute;
};

constexpr std::array Units{
    Unit{NSSecondCalendarUnit, UDAT_RELATIVE_SECONDS, UDAT_ABSOLUTE_NOW, false},
    Unit{NSMinuteCalendarUnit, UDAT_RELATIVE_MINUTES, UDAT_ABSOLUTE_NOW, false},
    Unit{NSHourCalendarUnit, UDAT_RELATIVE_HOURS, UDAT_ABSOLUTE_NOW, false},
    Unit{NSDayCalendarUnit, UDAT_RELATIVE_DAYS, UDAT_ABSOLUTE_DAY, false},
    Unit{NSWeekCalendarUnit, UDAT_RELATIVE_WEEKS, UDAT_ABSOLUTE_WEEK, true},
    Unit{NSMonthCalendarUnit, UDAT_RELATIVE_MONTHS, UDAT_ABSOLUTE_MONTH, true},
    Unit{NSYearCalendarUnit, UDAT_RELATIVE_YEARS, UDAT_ABSOLUTE_YEAR, true}};

/// Numbers in all plural forms that languages have.
constexpr std::array Samples{1, 2, 3, 5, 11, 21, 100};

/// The directions with their distances.
constexpr std::array Directions{
    std::pair{UDAT_DIRECTION_LAST_2, -2}, std::pair{UDAT_DIRECTION_LAST, -1},
    std::pair{UDAT_DIRECTION_THIS, 0}, std::pair{UDAT_DIRECTION_NEXT, 1},
    std::pair{UDAT_DIRECTION_NEXT_2, 2}};

QString wordsOf(const Formatter &formatter, UDateDirection direction, UDateAbsoluteUnit unit)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    formatter.format(direction, unit, text, status);
    return U_SUCCESS(status) ? ICU::stringOf(text) : QString();
}

QString wordsOf(const Formatter &formatter, int number, int sign, UDateRelativeUnit unit)
{
    UErrorCode status = U_ZERO_ERROR;
    icu::UnicodeString text;
    const UDateDirection direction = sign > 0 ? UDAT_DIRECTION_NEXT : UDAT_DIRECTION_LAST;
    formatter.format(double(number), direction, unit, text, status);
    return U_SUCCESS(status) ? ICU::stringOf(text) : QString();
}

/// A word ends where no letter follows; ideographs and kana are written without spaces.
bool isEndOfWord(QStringView text, qsizetype end)
{
    if (end == 0 || end >= text.size() || !text[end].isLetter())
        return true;
    return !text[end - 1].isLetter() || DateCharacters::isEastAsian(text[end].unicode()) ||
           DateCharacters::isEastAsian(text[end - 1].unicode());
}

bool isVowelOfArabic(QChar unit)
{
    return unit >= u'\u064B' && unit <= u'\u0652';
}

qsizetype countOfDigits(QStringView text, qsizetype at)
{
    qsizetype end = at;
    while (end < text.size() && text[end].digitValue() >= 0)
        ++end;
    return end - at;
}
} // namespace

std::shared_ptr<const NaturalLanguageWords>
NaturalLanguageWords::wordsOf(const DateEnvironment &environment)
{
    if (environment.customs.symbols != DateCustoms().symbols)
        return std::make_shared<const NaturalLanguageWords>(environment);
    static QMutex mutex;
    static QHash<QByteArray, std::shared_ptr<const NaturalLanguageWords>> known;
    const QMutexLocker lock(&mutex);
    std::shared_ptr<const NaturalLanguageWords> &words = known[environment.locale.getName()];
    if (!words)
        words = std::make_shared<const NaturalLanguageWords>(environment);
    return words;
}

/// Typed apostrophes are straight, and nobody types the vowels of Arabic and Hebrew.
QString NaturalLanguageWords::folded(QStringView text)
{
    QString result = text.toString().toCaseFolded();
    result.replace(u'\u2019', u'\'');
    result.removeIf([](QChar unit) {
        return unit.category() == QChar::Mark_NonSpacing &&
               (unit.script() == QChar::Script_Hebrew || isVowelOfArabic(unit));
    });
    return result;
}

NaturalLanguageWords::NaturalLanguageWords(const DateEnvironment &environment)
{
    addTable(QString::fromLatin1(environment.locale.getLanguage()));
    addNames(environment);
    addRelativeWords(environment);
}

void NaturalLanguageWords::add(const QString &words, const Meaning &meaning)
{
    QString start = folded(words).trimmed();
    if (start.endsWith(u'.') && start.count(u'.') == 1)
        start.chop(1);
    if (!start.isEmpty())
        _entries.push_back({start, QString(), meaning});
}

void NaturalLanguageWords::addTable(const QString &language)
{
    for (const NaturalLanguageRow &row : naturalLanguageTable()) {
        if (language != QLatin1String(row.language))
            continue;
        for (const QString &words : QString::fromUtf16(row.words).split(u'|'))
            add(words, row.meaning);
    }
}

void NaturalLanguageWords::addNames(const DateEnvironment &environment)
{
    using Symbols = NSDateFormatterSymbols;
    const auto addAll = [&](Symbols symbols, Kind kind, int first) {
        int value = first;
        for (const QString &name : environment.symbolsOf(symbols))
            add(name, {kind, value++});
    };
    for (const Symbols symbols : {Symbols::Month, Symbols::ShortMonth, Symbols::StandaloneMonth,
                                  Symbols::ShortStandaloneMonth})
        addAll(symbols, Kind::Month, 1);
    for (const Symbols symbols : {Symbols::Weekday, Symbols::ShortWeekday,
                                  Symbols::StandaloneWeekday, Symbols::ShortStandaloneWeekday})
        addAll(symbols, Kind::Weekday, 0);
    addAll(Symbols::AMPM, Kind::HalfOfDay, 0);
}

void NaturalLanguageWords::addRelativeWords(const DateEnvironment &environment)
{
    UErrorCode status = U_ZERO_ERROR;
    const Formatter formatter(environment.locale, status);
    if (U_FAILURE(status))
        return;
    add(::wordsOf(formatter, UDAT_DIRECTION_PLAIN, UDAT_ABSOLUTE_NOW), {Kind::Now});
    for (const auto &[direction, distance] : Directions) {
        add(::wordsOf(formatter, direction, UDAT_ABSOLUTE_DAY), {Kind::Day, distance});
        for (int day = 0; day < 7; ++day)
            add(::wordsOf(formatter, direction, UDateAbsoluteUnit(UDAT_ABSOLUTE_SUNDAY + day)),
                {Kind::RelativeWeekday, day, distance});
    }
    for (const Unit &unit : Units) {
        for (const auto &[direction, distance] : Directions) {
            if (unit.hasAbsolute)
                add(::wordsOf(formatter, direction, unit.absolute),
                    {Kind::RelativeUnit, int(unit.unit), distance});
        }
        for (const int number : Samples) {
            for (const int sign : {1, -1})
                addAmount(::wordsOf(formatter, number, sign, unit.relative),
                          {Kind::Amount, int(unit.unit), sign, number});
        }
    }
}

/// A sample with its number is a template for all; without one, it is words for that number.
void NaturalLanguageWords::addAmount(const QString &words, const Meaning &meaning)
{
    const QString text = folded(words);
    qsizetype at = 0;
    while (at < text.size() && text[at].digitValue() < 0)
        ++at;
    if (at == text.size()) {
        add(text, {Kind::FixedAmount, meaning.value, meaning.sign, meaning.amount});
        return;
    }
    const QString start = text.left(at);
    const QString end = text.mid(at + countOfDigits(text, at));
    for (const Entry &entry : _entries) {
        if (entry.meaning.kind == Kind::Amount && entry.start == start && entry.end == end)
            return;
    }
    _entries.push_back({start, end, meaning});
}

qsizetype NaturalLanguageWords::Entry::lengthIn(QStringView text) const
{
    if (!text.startsWith(start))
        return 0;
    qsizetype length = start.size();
    if (meaning.kind == Kind::Amount) {
        const qsizetype digits = countOfDigits(text, length);
        length += digits;
        // A space behind the number may be missing: "3日後".
        QStringView rest = end;
        if (rest.startsWith(u' ') && length < text.size() && text[length] != u' ')
            rest = rest.sliced(1);
        if (digits == 0 || !text.sliced(length).startsWith(rest))
            return 0;
        length += rest.size();
    }
    return isEndOfWord(text, length) ? length : 0;
}

NaturalLanguageWord NaturalLanguageWords::find(QStringView text) const
{
    NaturalLanguageWord best;
    for (const Entry &entry : _entries) {
        const qsizetype length = entry.lengthIn(text);
        if (length > best.length)
            best = {entry.meaning, length};
    }
    return best;
}

NaturalLanguageWord NaturalLanguageWords::find(QStringView text, Kind kind) const
{
    NaturalLanguageWord best;
    for (const Entry &entry : _entries) {
        const qsizetype length = entry.meaning.kind == kind ? entry.lengthIn(text) : 0;
        if (length > best.length)
            best = {entry.meaning, length};
    }
    return best;
}
