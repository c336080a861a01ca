#include "NumberReader_p.h"

#include "NumberText_p.h"
#include <KTUtility/Platform/Text/ASCII_p.h>

#include <algorithm>
#include <array>

using namespace KTPrivate;

namespace {
/// The coefficient holds this many digits for certain.
constexpr int CertainDigits = 18;
constexpr int GroupSize = 3;

bool isSpaceOrTab(char16_t unit)
{
    return unit == u' ' || unit == u'\t';
}

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isExponent(char16_t unit)
{
    return unit == u'e' || unit == u'E';
}

char16_t upperCase(char16_t unit)
{
    return unit >= u'a' && unit <= u'z' ? char16_t(unit - 32) : unit;
}

/// One reading, from left to right.
class Reading
{
public:
    Reading(QStringView text, const NumberReader &reader) : _text(text), _reader(reader) {}

    NumberReader::Result run()
    {
        skipWhitespace();
        _result.begin = _at;
        if (_at >= _text.size())
            return {};
        if (_reader.usesParentheses && unit() == u'(')
            return readParentheses();
        if (const bool isMinus = unit() == u'-'; isMinus || unit() == u'+')
            return readSigned(isMinus);
        if (startsNumber())
            return readNumber() ? stopAfterNumber() : NumberReader::Result();
        return isCertainlyNoNumber() ? failedAt(_at) : NumberReader::Result();
    }

private:
    char16_t unit() const { return _at < _text.size() ? _text[_at].unicode() : u'\0'; }
    char16_t unitBehind() const
    {
        return _at + 1 < _text.size() ? _text[_at + 1].unicode() : u'\0';
    }
    bool startsNumber() const
    {
        return isDigit(unit()) || (unit() == _reader.decimalSeparator && isDigit(unitBehind()));
    }

    void skipWhitespace()
    {
        while (isSpaceOrTab(unit()))
            ++_at;
    }

    NumberReader::Result failedAt(qsizetype position)
    {
        _result.outcome = NumberReader::NoNumber;
        _result.end = position;
        return _result;
    }

    /// Units that begin no number in any setting that this class is used for.
    bool isCertainlyNoNumber() const
    {
        const char16_t first = unit();
        if (ASCII::isLetter(first))
            return upperCase(first) != _reader.notANumberStart && !isExponent(first);
        if (first == u'(')
            return !_reader.usesParentheses;
        return QStringView(u"$/:;<=>?@[]^{|}~!\"#&*").contains(QChar(first));
    }

    NumberReader::Result readSigned(bool isMinus)
    {
        const qsizetype behindSign = ++_at;
        skipWhitespace();
        _result.isNegative = isMinus;
        if (startsNumber())
            return readNumber() ? stopAfterNumber() : NumberReader::Result();
        if (_at >= _text.size() || ASCII::isLetter(unit()))
            return isCertainlyNoNumber() || _at >= _text.size() ? failedAt(behindSign)
                                                                : NumberReader::Result();
        return {};
    }

    NumberReader::Result readParentheses()
    {
        ++_at;
        skipWhitespace();
        _result.isNegative = true;
        if (!startsNumber() || !readNumber())
            return {};
        skipWhitespace();
        if (unit() != u')')
            return {};
        ++_at;
        return finished();
    }

    NumberReader::Result finished()
    {
        _result.outcome = NumberReader::Number;
        _result.end = _at;
        return _result;
    }

    bool addDigit()
    {
        if (_digits >= CertainDigits)
            return false;
        _result.coefficient = _result.coefficient * 10 + unsigned(unit() - u'0');
        _digits += _result.coefficient != 0;
        ++_at;
        return true;
    }

    /// \return false if there are too many digits.
    bool readDigits(int *count)
    {
        for (*count = 0; isDigit(unit()); ++*count) {
            if (!addDigit())
                return false;
        }
        return true;
    }

    /// A separator, or blanks, which are one if a digit follows them. All groups of a number are
    /// parted by the same.
    /// \return the first unit behind it; -1 if there is none.
    qsizetype behindSeparator(bool isBlank) const
    {
        if (!isBlank)
            return unit() == _reader.groupingSeparator ? _at + 1 : -1;
        qsizetype behind = _at;
        while (behind < _text.size() && isSpaceOrTab(_text[behind].unicode()))
            ++behind;
        return behind < _text.size() && isDigit(_text[behind].unicode()) ? behind : -1;
    }

    bool mayBeSeparator() const
    {
        const bool isSeparator =
            _reader.groupingSeparator != 0 && unit() == _reader.groupingSeparator;
        return isSeparator || (_reader.hasRegularGroups && isSpaceOrTab(unit()));
    }

    /// \return false if the number is not of a form that is certain.
    bool readNumber()
    {
        int count = 0;
        if (!readDigits(&count) || !readGroups(count))
            return false;
        if (unit() != _reader.decimalSeparator)
            return true;
        ++_at;
        _result.hasPoint = true;
        return readDigits(&_result.fractionDigits);
    }

    /// Groups of three behind one to three digits.
    bool readGroups(int count)
    {
        if (!mayBeSeparator())
            return true;
        const bool isBlank = isSpaceOrTab(unit());
        qsizetype behind = behindSeparator(isBlank);
        if (behind >= 0 && (count < 1 || count > GroupSize))
            return false;
        for (; behind >= 0; behind = behindSeparator(isBlank)) {
            _at = behind;
            if (!readDigits(&count) || count != GroupSize)
                return false;
        }
        return true;
    }

    /// What follows must not be able to belong to the number.
    NumberReader::Result stopAfterNumber()
    {
        const qsizetype end = _at;
        const bool isBehindWhitespace = isSpaceOrTab(unit());
        skipWhitespace();
        const bool isSafe = _at >= _text.size() ||
                            isSafeTail(isBehindWhitespace, isDigit(_text[end - 1].unicode()));
        _at = end;
        return isSafe ? finished() : NumberReader::Result();
    }

    /// Whitespace between two digits stays a space; all other whitespace vanishes.
    bool isSafeTail(bool isBehindWhitespace, bool isBehindDigit) const
    {
        const char16_t next = unit();
        if (isDigit(next))
            return isBehindWhitespace && isBehindDigit && !_reader.usesGrouping;
        if (ASCII::isLetter(next))
            return !isExponent(next);
        if (next == u'.' || next == u',')
            return !isBehindWhitespace && !_reader.usesGrouping;
        if (next == u')')
            return !_reader.usesParentheses;
        return QStringView(u"$/:;<=>?@[]{|}!#&*%(").contains(QChar(next));
    }

    QStringView _text;
    const NumberReader &_reader;
    qsizetype _at = 0;
    int _digits = 0;
    NumberReader::Result _result;
};
} // namespace

namespace {
/// What a unit means in ASCII; itself if it means nothing there.
char16_t plainUnit(QChar unit)
{
    if (unit < u'\x80')
        return unit.unicode();
    if (unit.category() == QChar::Number_DecimalDigit)
        return char16_t(u'0' + unit.digitValue());
    if (NumberText::isWhitespace(unit))
        return u' ';
    return unit == u'\u2212' ? u'-' : unit.unicode();
}
} // namespace

NumberReader::Result NumberReader::read(QStringView text) const
{
    if (ASCII::isAllOf(text))
        return Reading(text, *this).run();
    // Longer texts are no numbers that can be read without ICU.
    constexpr qsizetype LongestPlain = 64;
    if (text.size() > LongestPlain)
        return {};
    std::array<char16_t, LongestPlain> plain;
    std::transform(text.begin(), text.end(), plain.begin(), plainUnit);
    return Reading(QStringView(plain.data(), text.size()), *this).run();
}
