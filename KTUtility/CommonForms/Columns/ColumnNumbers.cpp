#include "ColumnNumbers_p.h"

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Text/PlainSign_p.h>
#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>

#include <QVarLengthArray>

#include <algorithm>
#include <optional>
#include <span>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype DigitsOfGroup = 3;
constexpr char16_t Points[] = {u'.', u','};

/// The digits of a number between its separators.
struct Group
{
    qsizetype begin = 0;
    qsizetype length = 0;
    char16_t separator = 0; ///< before it; 0 before the first one
};

struct TypedNumeral
{
    QVarLengthArray<Group, 8> groups;

    qsizetype begin() const
    {
        return groups.front().separator ? groups.front().begin - 1 : groups.front().begin;
    }
    qsizetype end() const { return groups.back().begin + groups.back().length; }
};

qsizetype digitsFrom(QStringView text, qsizetype position)
{
    qsizetype end = position;
    while (isDigitAt(text, end))
        ++end;
    return end - position;
}

/// Whether digits go on behind a separator. Those behind a blank do only if they are a group.
bool goesOn(QStringView text, qsizetype separator)
{
    const char16_t sign = plainSignAt(text, separator);
    if (sign == u' ')
        return digitsFrom(text, separator + 1) == DigitsOfGroup;
    return (sign == u'.' || sign == u',' || sign == u'\'') && isDigitAt(text, separator + 1);
}

/// ".5", but not the full stop of "Rs.500".
bool beginsWithPoint(QStringView text, qsizetype position)
{
    const char16_t sign = plainSignAt(text, position);
    const char16_t before = plainSignAt(text, position - 1);
    const bool isFirst =
        before == 0 || before == u' ' || before == u'-' || before == u'+' || before == u'(';
    return isFirst && (sign == u'.' || sign == u',') && isDigitAt(text, position + 1);
}

TypedNumeral numeralAt(QStringView text, qsizetype position)
{
    TypedNumeral numeral;
    char16_t separator = 0;
    if (!isDigitAt(text, position))
        separator = plainSignAt(text, position++);
    for (;;) {
        const qsizetype length = digitsFrom(text, position);
        numeral.groups.append({position, length, separator});
        position += length;
        if (!goesOn(text, position))
            return numeral;
        separator = plainSignAt(text, position++);
    }
}

/// The number that a text has; nothing if there are several, or a separator behind it.
std::optional<TypedNumeral> numeralIn(QStringView text)
{
    std::optional<TypedNumeral> found;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (!isDigitAt(text, at) && !beginsWithPoint(text, at))
            continue;
        if (found)
            return std::nullopt;
        found = numeralAt(text, at);
        at = found->end();
        const char16_t behind = plainSignAt(text, at);
        if (behind == u'.' || behind == u',')
            return std::nullopt;
    }
    return found;
}

/// Whether the digits before the fraction are grouped as in a number: by one sign, three each, or two
/// each before the last three, as in India; or not at all.
bool areGrouped(QStringView text, std::span<const Group> groups)
{
    const Group &first = groups.front();
    const std::span<const Group> others = groups.subspan(1);
    if (first.separator != 0)
        return false;
    if (others.empty())
        return true;
    const auto areAll = [&](std::span<const Group> some, qsizetype length) {
        return std::all_of(some.begin(), some.end(), [&](const Group &group) {
            return group.length == length && group.separator == others.front().separator;
        });
    };
    const bool isStart = first.length <= DigitsOfGroup && text[first.begin].digitValue() != 0;
    return isStart && areAll(others.last(1), DigitsOfGroup) &&
           (areAll(others, DigitsOfGroup) ||
            areAll(others.first(others.size() - 1), DigitsOfGroup - 1));
}

/// Whether a number can have a sign before its fraction, if that is the last of its separators.
bool isPossible(QStringView text, const TypedNumeral &numeral, char16_t point)
{
    std::span<const Group> groups(numeral.groups.data(), size_t(numeral.groups.size()));
    if (groups.back().separator == point)
        groups = groups.first(groups.size() - 1);
    const bool hasOther = std::any_of(groups.begin(), groups.end(), [point](const Group &group) {
        return group.separator == point;
    });
    return !hasOther && (groups.empty() || areGrouped(text, groups));
}

/// What most numbers do not have.
bool hasPoint(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar unit) {
        return plainSign(unit) == u'.' || plainSign(unit) == u',';
    });
}

bool hasPoint(const TypedNumeral &numeral)
{
    return std::any_of(numeral.groups.begin(), numeral.groups.end(), [](const Group &group) {
        return group.separator == u'.' || group.separator == u',';
    });
}
} // namespace

unsigned ColumnNumbers::possiblePoints(QStringView text)
{
    if (text.size() > FoldedText::MaximumLength || !hasPoint(text))
        return 0;
    const std::optional<TypedNumeral> numeral = numeralIn(text);
    if (!numeral || !hasPoint(*numeral))
        return 0;
    unsigned possible = 0;
    for (size_t point = 0; point < std::size(Points); ++point)
        possible |= isPossible(text, *numeral, Points[point]) ? 1U << point : 0;
    return possible;
}

QString ColumnNumbers::signOf(const NSLocale &locale, bool isMoney)
{
    NSNumberFormatter formatter;
    formatter.setLocale(locale);
    formatter.setNumberStyle(isMoney ? NSNumberFormatterCurrencyStyle
                                     : NSNumberFormatterDecimalStyle);
    return isMoney ? formatter.currencyDecimalSeparator() : formatter.decimalSeparator();
}

size_t ColumnNumbers::pointOf(const QString &sign)
{
    return sign == u"," ? Comma : FullStop;
}

QString ColumnNumbers::withSign(const QString &text, size_t point, const QString &sign)
{
    const std::optional<TypedNumeral> numeral = numeralIn(text);
    if (!numeral)
        return text;
    QString result = text.first(numeral->begin());
    for (const Group &group : numeral->groups) {
        if (group.separator == Points[point])
            result += sign;
        result += QStringView(text).sliced(group.begin, group.length);
    }
    return result + QStringView(text).sliced(numeral->end());
}
