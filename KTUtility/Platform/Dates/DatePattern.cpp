#include "DatePattern_p.h"

#include "DateCharacters_p.h"
#include <KTUtility/Platform/Text/ASCII_p.h>

#include <QMutex>
#include <QMutexLocker>

#include <algorithm>
#include <array>
#include <atomic>
#include <map>
#include <tuple>
#include <unordered_map>

using namespace KTPrivate;

namespace {
using ElementKind = DateElement::Kind;

/// More patterns than any application has; the texts of patterns may come from outside.
constexpr size_t Capacity = 4096;
constexpr qsizetype LongestKept = 256;

/// Patterns are short, and there is one look-up for each formatter: FNV-1a is several times faster
/// here than what QHash uses.
struct PatternHash
{
    size_t operator()(const QString &text) const
    {
        quint64 hash = 14'695'981'039'346'656'037U;
        for (const QChar unit : text)
            hash = (hash ^ unit.unicode()) * 1'099'511'628'211U;
        return size_t(hash);
    }
};

using KnownPatterns = std::unordered_map<QString, std::shared_ptr<const DatePattern>, PatternHash>;

quint64 nextNumber()
{
    static std::atomic<quint64> last = 0;
    return ++last;
}

/// What tells how the date before a time is read: its pattern, the widths of its years, and whether
/// English months have all of their names.
using PrefixKey = std::tuple<QString, int, bool>;

quint64 numberOfPrefix(const PrefixKey &key)
{
    static QMutex mutex;
    static std::map<PrefixKey, quint64> known;
    const QMutexLocker lock(&mutex);
    if (known.size() >= Capacity && !known.contains(key))
        known.clear();
    quint64 &number = known[key];
    return number == 0 ? number = nextNumber() : number;
}

/// Whether ICU takes a field for a number when it stands beside another one.
bool isNumberField(char16_t letter, qsizetype count)
{
    return QStringView(u"yYudhHmsSDFwWkKgAr").contains(letter) ||
           (count < 3 && QStringView(u"MLecqQ").contains(letter));
}

/// The fields that want as many characters as they have letters. Years, months, hours and the like
/// take fewer.
bool wantsAllDigits(char16_t letter)
{
    return QStringView(u"dmsADFgruw").contains(letter);
}

qsizetype endOfRun(QStringView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && text[end] == text[start])
        ++end;
    return end;
}

/// The end of what stands between two fields.
qsizetype endOfLiteral(QStringView text, qsizetype start)
{
    bool isQuoted = false;
    qsizetype end = start;
    for (; end < text.size(); ++end) {
        if (text[end] == u'\'')
            isQuoted = !isQuoted;
        else if (!isQuoted && ASCII::isLetter(text[end].unicode()))
            break;
    }
    return end;
}

bool isReadableNumber(char16_t letter, int count)
{
    if (letter == u'y')
        return count == 1 || count == 2 || count == 4;
    return QStringView(u"dhHkKms").contains(letter);
}

ElementKind elementKindOf(char16_t letter, int count)
{
    if (letter == u'M' || letter == u'L')
        return count <= 2 ? ElementKind::Number : ElementKind::MonthName;
    if (letter == u'E')
        return ElementKind::Weekday;
    if (letter == u'a')
        return ElementKind::HalfOfDay;
    return isReadableNumber(letter, count) ? ElementKind::Number : ElementKind::Other;
}

bool isNumber(const DateElement &element)
{
    return element.kind != ElementKind::Literal && isNumberField(element.letter, element.count);
}

/// The letters of the number fields that follow each other from \a start.
int countOfNumberLetters(QStringView text, qsizetype start)
{
    qsizetype at = start;
    while (at < text.size()) {
        const qsizetype end = endOfRun(text, at);
        if (!isNumberField(text[at].unicode(), end - at))
            break;
        at = end;
    }
    return int(at - start);
}
} // namespace

DatePattern::DatePattern(const QString &pattern, DateYears years)
    : text(pattern), number(nextNumber()), isBareHour(pattern == u"ha"), _years(years)
{
    for (qsizetype at = 0; at < text.size();) {
        const bool isField = ASCII::isLetter(text[at].unicode());
        const qsizetype end = isField ? endOfRun(text, at) : endOfLiteral(text, at);
        if (isField)
            appendField(at, end);
        else
            appendLiteral(QStringView(text).sliced(at, end - at));
        at = end;
    }
    leaveAdjacentNumbersToICU();
    hasMinimalDigits = std::any_of(_elements.begin(), _elements.end(),
                                   [](const DateElement &one) { return one.minimalDigits > 1; });
    noteLead();
    noteDatePrefix();
}

void DatePattern::noteDatePrefix()
{
    const auto hour = std::find_if(_elements.begin(), _elements.end(), [](const DateElement &one) {
        return one.kind == ElementKind::Number && QStringView(u"hHkK").contains(one.letter);
    });
    const auto count = size_t(hour - _elements.begin());
    if (hour != _elements.end() && count >= 2 && _elements[count - 1].sought == u" ")
        _datePrefix = {numberOfPrefix({text.left(hour->start), int(_years), hasMonthName}), count};
}

void DatePattern::noteLead()
{
    const auto isOther = [](const DateElement &element) {
        return element.kind == ElementKind::Other;
    };
    _needsICU = std::any_of(_elements.begin(), _elements.end(), isOther);
    _needsICUForMoreThanZones =
        std::any_of(_elements.begin(), _elements.end(), [&](const DateElement &element) {
            return isOther(element) && !element.isZoneName();
        });
    if (_elements.empty())
        return;
    const DateElement &first = _elements.front();
    _leadingKind = first.kind;
    _leadingLetter = first.letter;
    _isLedByMonth = first.letter == u'M' || first.letter == u'L';
    // A text may end within the last literal; only one that a field follows has to be there.
    const bool isSought = first.kind == ElementKind::Number || _isLedByMonth;
    if (isSought && _elements.size() > 2 && _elements[1].kind == ElementKind::Literal &&
        !_elements[1].sought.isEmpty())
        _unitAfterLead = _elements[1].sought[0].unicode();
}

void DatePattern::appendField(qsizetype at, qsizetype end)
{
    const char16_t letter = text[at].unicode();
    const int count = int(end - at);
    if (letter == u'y' && yearLetters == 0)
        setYear(at, end);
    const ElementKind kind = elementKindOf(letter, count);
    hasMonthName = hasMonthName || kind == ElementKind::MonthName;
    hasDayPeriod = hasDayPeriod || letter == u'b' || letter == u'B';
    hasZone = hasZone || QStringView(u"zZOvVXx").contains(letter);
    _elements.push_back({kind, letter, count, wantsAllDigits(letter) ? count : 1, at, {}, {}});
}

/// Quotes hold letters; two of them are one, inside and outside of quotes.
void DatePattern::appendLiteral(QStringView source)
{
    DateElement element;
    element.kind = ElementKind::Literal;
    for (qsizetype at = 0; at < source.size(); ++at) {
        const bool isQuote = source[at] == u'\'';
        const bool isDoubled = isQuote && at + 1 < source.size() && source[at + 1] == u'\'';
        if (isQuote && !isDoubled)
            continue;
        at += isDoubled ? 1 : 0;
        element.characters += source[at];
        const bool isWhitespace = DateCharacters::isWhitespaceOfPatterns(source[at].unicode());
        if (!isWhitespace)
            element.sought += source[at];
        else if (!element.sought.endsWith(u' '))
            element.sought += u' ';
    }
    // Some versions of the locales' data have a space there and some have none; fields take any.
    if (_years == DateYears::OfStyle && element.sought == u". ")
        element.sought.chop(1);
    _elements.push_back(std::move(element));
}

void DatePattern::setYear(qsizetype at, qsizetype end)
{
    yearLetters = int(end - at);
    beforeYear = text.left(at);
    digitsAfterYear = countOfNumberLetters(text, end);
}

/// Numbers without anything between them share their digits; ICU tries several divisions.
void DatePattern::leaveAdjacentNumbersToICU()
{
    for (size_t index = 1; index < _elements.size(); ++index) {
        DateElement &left = _elements[index - 1];
        DateElement &right = _elements[index];
        if (!isNumber(left) || !isNumber(right))
            continue;
        left.kind = right.kind = ElementKind::Other;
        left.minimalDigits = right.minimalDigits = 1;
    }
}

bool DatePattern::takesYearOf(int digits) const
{
    switch (yearLetters) {
    case 1:
        return digits == 2 || digits == 4;
    case 2:
        return digits == 2 || (digits == 4 && _years == DateYears::OfStyle);
    case 4:
        return digits == 4;
    default:
        return true;
    }
}

std::shared_ptr<const DatePattern> DatePattern::patternOf(const QString &text, DateYears years)
{
    if (text.size() > LongestKept)
        return std::make_shared<const DatePattern>(text, years);
    static QMutex mutex;
    static std::array<KnownPatterns, 2> knownByYears;
    const QMutexLocker lock(&mutex);
    KnownPatterns &known = knownByYears[size_t(years)];
    if (known.size() >= Capacity && !known.contains(text))
        known.clear();
    std::shared_ptr<const DatePattern> &pattern = known[text];
    if (!pattern)
        pattern = std::make_shared<const DatePattern>(text, years);
    return pattern;
}
