#include "DigitGroups_p.h"

#include <KTUtility/Platform/Numbers/NumberText_p.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>
#include <KTUtility/Platform/Text/NSStringNormalization.h>

#include <QList>
#include <QStringList>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int CommonGroupSize = 3;

bool isEvenlyCut(const QStringList &groups, qsizetype size, qsizetype otherSize)
{
    if (groups.size() == 1)
        return true;
    if (groups.first().isEmpty())
        return false;
    const auto isOther = [otherSize](const QString &group) { return group.size() == otherSize; };
    return groups.last().size() == size && groups.first().size() <= otherSize &&
           std::all_of(groups.begin() + 1, groups.end() - 1, isOther);
}

/// What "." and its look-alikes have in common ("．").
QString plain(const QString &separator)
{
    return NSString::foldedStringWithCompatibilityMapping(separator);
}

/// \return -1 if it is no decimal digit.
int decimalDigit(char32_t character)
{
    return QChar::digitValue(character);
}

/// The integer at a place of a text, in ASCII; nothing if there is none.
QString integerAt(const QString &text, qsizetype index)
{
    QString integer;
    if (index < text.size() && QStringView(u"+-\u2212").contains(text[index]))
        integer = text[index++] == u'+' ? QString() : u"-"_s;
    const qsizetype length = integer.size();
    while (index < text.size()) {
        const NSCodePoint point = NSCodePointAt(text, index);
        if (decimalDigit(point.character) < 0)
            break;
        integer += QChar(u'0' + decimalDigit(point.character));
        index += point.length;
    }
    return integer.size() > length ? integer : QString();
}

bool isLetterOrDigit(char32_t character)
{
    // The apostrophe of Switzerland may be a letter of its own kind.
    return QChar::category(character) != QChar::Letter_Modifier &&
           QChar::isLetterOrNumber(character);
}
} // namespace

/// Digits with separators between them, as they stand in a text.
struct DigitGroups::Numeral
{
    QStringList groups; ///< in ASCII digits; the first is empty if a separator stands before it
    QString separators; ///< between the groups, one unit each; a space for any whitespace
};

/// Finds the numerals of a text one after the other.
class DigitGroups::Scanner
{
public:
    explicit Scanner(const QString &text) : _text(text) {}

    /// \return false at the end of the text.
    bool next(Numeral *numeral)
    {
        *numeral = {};
        while (_at < _text.size() && digitHere() < 0)
            _at += codePoint().length;
        if (_at >= _text.size())
            return false;
        if (const QChar separator = separatorBefore(_at); !separator.isNull())
            *numeral = {{QString()}, separator};
        numeral->groups.append(digits());
        while (skipGap(numeral))
            numeral->groups.last() += digits();
        return true;
    }

private:
    NSCodePoint codePoint() const { return NSCodePointAt(_text, _at); }
    int digitHere() const { return _at < _text.size() ? decimalDigit(codePoint().character) : -1; }
    bool isUnseen(qsizetype index) const
    {
        return NumberText::isWhitespace(_text[index]) || NumberText::isDirectionMark(_text[index]);
    }

    QString digits()
    {
        QString digits;
        for (int digit = digitHere(); digit >= 0; digit = digitHere()) {
            digits += QChar(u'0' + digit);
            _at += codePoint().length;
        }
        return digits;
    }

    /// Goes on behind one separator, or nothing that is seen, to the next digit.
    bool skipGap(Numeral *numeral)
    {
        const qsizetype end = _at;
        QString gap;
        bool isSpaced = false;
        for (; _at < _text.size() && digitHere() < 0 && gap.size() < 2; ++_at) {
            isSpaced |= NumberText::isWhitespace(_text[_at]);
            if (!isUnseen(_at))
                gap += _text[_at];
        }
        const bool isGap = digitHere() >= 0 && (gap.isEmpty() || isSeparator(gap));
        if (!isGap) {
            _at = end;
            return false;
        }
        if (gap.isEmpty() && isSpaced)
            gap = u" "_s;
        if (!gap.isEmpty())
            numeral->groups.append(QString());
        numeral->separators += gap;
        return true;
    }

    /// Whether it is neither a letter, a digit, a dash nor a bracket.
    static bool isSeparator(const QString &gap)
    {
        if (gap.size() != 1 || gap[0].isSurrogate() || isLetterOrDigit(gap[0].unicode()))
            return false;
        const QChar::Category category = gap[0].category();
        return category != QChar::Punctuation_Dash && category != QChar::Punctuation_Open &&
               category != QChar::Punctuation_Close;
    }

    /// Whether a code of ISO 4217 ends at an index. It has no full stop behind it.
    bool isEndOfCode(qsizetype index) const
    {
        constexpr qsizetype Length = 3;
        const qsizetype start = index + 1 - Length;
        const auto isCapital = [](QChar unit) { return unit >= u'A' && unit <= u'Z'; };
        return start >= 0 &&
               std::all_of(_text.begin() + start, _text.begin() + index + 1, isCapital);
    }

    /// A separator right before the digits that belongs to them, not to a sign ("Rs.5").
    QChar separatorBefore(qsizetype index) const
    {
        index = seenBefore(index);
        if (index < 0 || !_text[index].isPunct() || !isSeparator(_text.mid(index, 1)))
            return {};
        const qsizetype before = index - 1;
        const bool isOfSign = _text[index] == u'.' && before >= 0 && !isEndOfCode(before) &&
                              (_text[before].isLetterOrNumber() || _text[before] == u'/');
        return isOfSign ? QChar() : _text[index];
    }

    /// The index of what is seen before \a index; -1 if there is nothing.
    qsizetype seenBefore(qsizetype index) const
    {
        do
            --index;
        while (index >= 0 && isUnseen(index));
        return index;
    }

    const QString &_text;
    qsizetype _at = 0;
};

DigitGroups::DigitGroups(const NSNumberFormatter &formatter)
    : _groupSize(formatter.groupingSize())
    , _otherGroupSize(formatter.secondaryGroupingSize())
    , _points(plain(formatter.decimalSeparator() + formatter.currencyDecimalSeparator()))
    , _exponentSymbol(formatter.exponentSymbol())
{
    if (_otherGroupSize <= 0)
        _otherGroupSize = _groupSize;
}

bool DigitGroups::fit(const QString &text, const NSDecimalNumber &value) const
{
    QString mantissa = text;
    const QString exponent = takeExponent(&mantissa);
    Scanner scanner(mantissa);
    Numeral numeral;
    bool hasDigits = false;
    while (scanner.next(&numeral)) {
        hasDigits = true;
        if (isValue(numeral, exponent, value))
            return true;
    }
    return !hasDigits;
}

/// Cuts an exponent and what is behind it off a text.
/// \return "e" and its digits; nothing if there is none.
QString DigitGroups::takeExponent(QString *text) const
{
    for (const QString &symbol : {_exponentSymbol, u"e"_s}) {
        qsizetype index = text->indexOf(symbol, 1, Qt::CaseInsensitive);
        for (; index > 0; index = text->indexOf(symbol, index + 1, Qt::CaseInsensitive)) {
            const QString digits = integerAt(*text, index + symbol.size());
            if (digits.isEmpty() || decimalDigit(NSCodePointBefore(*text, index).character) < 0)
                continue;
            text->truncate(index);
            return u'e' + digits;
        }
    }
    return {};
}

/// Whether one way to read the numeral, with even groups, gives the value.
bool DigitGroups::isValue(const Numeral &numeral, const QString &exponent,
                          const NSDecimalNumber &value) const
{
    const QString sign = value.isNegative() ? u"-"_s : QString();
    const auto is = [&](const QString &number) {
        return NSDecimalNumber::decimalNumberWithString(QString(sign + number + exponent)) == value;
    };
    QStringList groups = numeral.groups;
    const bool isInteger = isEven(groups);
    if (isInteger && is(groups.join(QString())))
        return true;
    if (numeral.separators.isEmpty())
        return false;
    const QString fraction = groups.takeLast();
    const bool isClear = isPoint(numeral.separators.back()) || !isInteger;
    return isClear && isEven(groups) && is(u'0' + groups.join(QString()) + u'.' + fraction);
}

bool DigitGroups::isEven(const QStringList &groups) const
{
    return isEvenlyCut(groups, CommonGroupSize, CommonGroupSize) ||
           (_groupSize > 0 && isEvenlyCut(groups, _groupSize, _otherGroupSize));
}

bool DigitGroups::isPoint(QChar separator) const
{
    const QString text = plain(separator);
    return !text.isEmpty() && _points.contains(text);
}
