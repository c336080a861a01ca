#include "FormulaText.h"

#include <QRegularExpression>
#include <QStringView>

#include <algorithm>

namespace {
constexpr QChar Mark = u'\'';

/// Whether spreadsheets pass over it at the beginning of a text.
bool isIgnored(QChar unit)
{
    if (unit.unicode() < 0x80)
        return unit.unicode() <= u' ' || unit.unicode() == 0x7F;
    return unit.isSpace() || unit.category() == QChar::Other_Control ||
           unit.category() == QChar::Other_Format;
}

bool isOneOf(QChar unit, QStringView units)
{
    return units.contains(unit);
}

/// Whether what stands behind a sign makes a number of it, as people write them: digits with
/// separators, with a currency's sign or "%". Numbers should stay numbers for the spreadsheet.
bool isRestOfNumber(QStringView rest)
{
    const auto belongs = [](QChar unit) {
        return unit.isDigit() || unit.isSpace() || isOneOf(unit, u".,'\u2019\u066B\u066C%\u066A") ||
               unit.category() == QChar::Symbol_Currency;
    };
    return std::any_of(rest.begin(), rest.end(), [](QChar unit) { return unit.isDigit(); }) &&
           std::all_of(rest.begin(), rest.end(), belongs);
}

/// Whether what stands behind a sign makes a phone number of it that nobody can compute: numbers with
/// nothing but a blank between two of them. (In "+49-30-1234", a spreadsheet would subtract.)
bool isRestOfPhone(QStringView rest)
{
    static const QRegularExpression neighbours(QStringLiteral("[\\d)]\\s+[\\d(]"));
    const auto belongs = [](QChar unit) {
        return unit.isDigit() || unit.isSpace() || isOneOf(unit, u"()-./");
    };
    return std::all_of(rest.begin(), rest.end(), belongs) &&
           neighbours.match(rest.toString()).hasMatch();
}

/// Most texts begin so, and are none.
bool isWordStart(QChar unit)
{
    const int code = unit.unicode() | 0x20;
    return (code >= u'a' && code <= u'z') || (unit >= u'0' && unit <= u'9');
}

/// FormulaText::isFormula() without a copy.
bool isRun(QStringView text)
{
    if (!text.isEmpty() && isWordStart(text.front()))
        return false;
    const auto first = std::find_if_not(text.begin(), text.end(), isIgnored);
    if (first == text.end())
        return false;
    const QStringView rest(first, text.end());
    if (isOneOf(rest.front(), u"=@\uFF1D\uFF20"))
        return true;
    const QStringView number = rest.sliced(1);
    return isOneOf(rest.front(), u"+-\uFF0B\uFF0D") && !isRestOfNumber(number) &&
           !isRestOfPhone(number);
}

/// Whether a text, behind all of its marks, is a formula.
bool needsMark(QStringView text)
{
    while (text.startsWith(Mark))
        text = text.sliced(1);
    return isRun(text);
}
} // namespace

bool FormulaText::isFormula(const QString &text)
{
    return isRun(text);
}

QString FormulaText::marked(const QString &text)
{
    return needsMark(text) ? QString(Mark + text) : text;
}

QString FormulaText::unmarked(const QString &text)
{
    return text.startsWith(Mark) && needsMark(text) ? text.sliced(1) : text;
}
