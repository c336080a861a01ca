#include "DateWords_p.h"

#include "DateNameWords_p.h"
#include "DatePatternWords_p.h"
#include "DateWordRows_p.h"
#include "RelativeDateWords_p.h"
#include <KTUtility/CommonForms/Text/SharedTables_p.h>
#include <KTUtility/Platform/Text/ICU_p.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// Fewer letters than these are not taken for the beginning of a name.
constexpr qsizetype ShortestPart = 3;
/// A name in another case has another ending in the place of its own, neither of more letters than
/// these.
constexpr qsizetype LongestEnding = 2;
constexpr qsizetype LongestOwnEnding = 3;
constexpr qsizetype ShortestStem = 5;

qsizetype commonLength(QStringView left, QStringView right)
{
    const auto end = std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    return end.first - left.begin();
}

/// Whether a word is the beginning of a name, or the name with another ending.
bool isLike(QStringView word, QStringView name)
{
    const qsizetype common = commonLength(word, name);
    if (common == word.size())
        return true;
    return common >= ShortestStem && word.size() - common <= LongestEnding &&
           name.size() - common <= LongestOwnEnding;
}

/// Arabic and Hebrew as they are typed: without vowels, and without hamzas on letters.
QString withoutMarks(QStringView words)
{
    QString bare = words.toString().normalized(QString::NormalizationForm_D);
    bare.removeIf([](QChar unit) {
        return unit.isMark() &&
               (unit.script() == QChar::Script_Hebrew || unit.script() == QChar::Script_Arabic ||
                unit.script() == QChar::Script_Inherited);
    });
    return bare;
}

bool isSemitic(QStringView words)
{
    return std::any_of(words.begin(), words.end(), [](QChar unit) {
        return unit.script() == QChar::Script_Hebrew || unit.script() == QChar::Script_Arabic;
    });
}

bool isUnit(const DateWord &word)
{
    return word.kind == DateWord::Kind::Unit || word.kind == DateWord::Kind::OneUnit ||
           word.kind == DateWord::Kind::UnitWithSuffix || word.kind == DateWord::Kind::FixedAmount;
}

/// A bare "m", perhaps before other words, is a minute to some and a month to others, in every
/// language.
bool isMinuteOrMonth(QStringView words)
{
    const QString folded = FoldedText::folded(words);
    const QStringView first = QStringView(folded).left(folded.indexOf(u' '));
    return first == u"m" || first == u"\u043C";
}

QString withoutPoints(QStringView words)
{
    return words.toString().remove(u'.').trimmed();
}
} // namespace

std::shared_ptr<const DateWords> DateWords::wordsOf(const NSLocale &locale)
{
    static SharedTables<DateWords> tables;
    return tables.tableOf(locale.localeIdentifier(), [&locale] { return DateWords(locale); });
}

DateWords::DateWords(const NSLocale &locale) : _locale(locale)
{
    const icu::Locale icuLocale = ICU::localeOf(locale);
    addDateNames(*this, icuLocale);
    addDayPeriods(*this, icuLocale);
    addRelativeDateWords(*this, icuLocale);
    addDatePatternWords(*this, icuLocale);
    addDateWordRows(*this, QString::fromLatin1(icuLocale.getLanguage()));
    addOrdinals(*this, icuLocale);
    addEnglishDateWords(*this);
}

void DateWords::add(QStringView words, const DateWord &meaning)
{
    const QString bare = withoutPoints(words);
    if (bare.isEmpty() || (isUnit(meaning) && isMinuteOrMonth(bare)))
        return;
    _table.add(bare, meaning);
    if (isSemitic(bare))
        _table.add(withoutMarks(bare), meaning);
    const QStringView typed = words.trimmed();
    const QStringView withoutLast = typed.endsWith(u'.') ? typed.chopped(1) : typed;
    if (withoutLast.contains(u'.')) {
        _table.add(typed, meaning);
        _table.add(withoutLast, meaning);
    }
}

void DateWords::addName(QStringView name, const DateWord &meaning)
{
    add(name, meaning);
    _names.push_back({FoldedText::folded(withoutPoints(name)), meaning});
}

void DateWords::addMonthsWith(const QString &prefix, const QString &suffix)
{
    for (const Name &name : _names) {
        if (name.meaning.kind == Kind::Month)
            add(QString(prefix + name.name + suffix), name.meaning);
    }
}

void DateWords::addOrdinal(QStringView suffix)
{
    _ordinals.add(suffix, 'n');
}

void DateWords::addForeign(QStringView word, const DateWord &meaning)
{
    if (!isKnown(FoldedText::folded(word)))
        add(word, meaning);
}

bool DateWords::isKnown(const QString &folded) const
{
    return _table.longestAt(folded, 0).length == folded.size();
}

DateWords::Match DateWords::longestAt(QStringView folded, qsizetype position) const
{
    Match match = _table.longestAt(folded, position);
    const qsizetype end = position + match.length;
    // "tháng 1" is not the beginning of "tháng 12".
    if (match.length > 0 && end < folded.size() && folded[end - 1].isDigit() &&
        folded[end].isDigit())
        return {};
    return match;
}

const DateWord *DateWords::nameLike(QStringView word) const
{
    const DateWord *found = nullptr;
    if (word.size() < ShortestPart)
        return nullptr;
    for (const Name &name : _names) {
        if (!isLike(word, name.name))
            continue;
        if (found && *found != name.meaning)
            return nullptr;
        found = &name.meaning;
    }
    return found;
}

qsizetype DateWords::ordinalAt(QStringView folded, qsizetype position) const
{
    return _ordinals.longestAt(folded, position).length;
}
