#include "Numeral_p.h"

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr qsizetype NumeralGroupSize = 3;
constexpr qsizetype MaximumDigits = 38;
constexpr char16_t ArabicPoint = u'\u066B';
constexpr char16_t ArabicGroup = u'\u066C';

bool isDigit(QStringView text, qsizetype index)
{
    return index < text.size() && text[index] >= u'0' && text[index] <= u'9';
}

/// Signs that separate groups in one locale and the fraction in another.
bool isOfBothRoles(char16_t unit)
{
    return unit == u'.' || unit == u',';
}

/// Signs that separate groups wherever they are used.
bool isOfGroupsOnly(char16_t unit)
{
    return unit == u' ' || unit == u'\'' || unit == ArabicGroup;
}

/// Digits with the separator before them.
struct Chunk
{
    qsizetype begin;
    qsizetype length;
    char16_t separator;
};

using Chunks = QVarLengthArray<Chunk, 16>;

enum class SeparatorRole { Groups, Point, Uneven };

class Scanner
{
public:
    Scanner(QStringView text, qsizetype position, const NumberSigns &signs)
        : _text(text), _signs(signs), _at(position)
    {
    }

    Chunks chunks()
    {
        Chunks chunks;
        if (isDigit(_text, _at))
            chunks.append(digits(0));
        else if (_at < _text.size() && isPointLike(_text[_at].unicode()) && isDigit(_text, _at + 1))
            chunks.append({_at, 0, 0});
        while (!chunks.isEmpty() && isSeparatorHere()) {
            const char16_t separator = _text[_at++].unicode();
            chunks.append(digits(separator));
        }
        return chunks;
    }

    qsizetype position() const { return _at; }

    /// Goes on behind a point that no digits follow.
    bool skipLastPoint()
    {
        const bool isPoint = _at < _text.size() && _signs.isPoint(_text[_at].unicode()) &&
                             (_text[_at] == u'.' || _at + 1 == _text.size());
        _at += isPoint;
        return isPoint;
    }

private:
    bool isPointLike(char16_t unit) const
    {
        return isOfBothRoles(unit) || unit == ArabicPoint || _signs.isPoint(unit);
    }

    bool isSeparatorHere() const
    {
        if (_at >= _text.size() || !isDigit(_text, _at + 1))
            return false;
        const char16_t unit = _text[_at].unicode();
        if (unit == u' ')
            return isGroupBehind();
        return isPointLike(unit) || isOfGroupsOnly(unit) || _signs.isGroup(unit);
    }

    /// Whether a blank has a group behind it and not another number.
    bool isGroupBehind() const
    {
        if (isGroupBehind(NumeralGroupSize))
            return true;
        // Toki Pona has "12 34 56".
        return _signs.isGroup(u' ') &&
               (isGroupBehind(_signs.groupSize) || isGroupBehind(_signs.otherGroupSize));
    }

    bool isGroupBehind(qsizetype size) const
    {
        const qsizetype end = _at + 1 + size;
        for (qsizetype index = _at + 1; index < end; ++index) {
            if (!isDigit(_text, index))
                return false;
        }
        return !isDigit(_text, end) &&
               (end >= _text.size() || !QStringView(u"/\u2044:").contains(_text[end]));
    }

    Chunk digits(char16_t separator)
    {
        const qsizetype begin = _at;
        while (isDigit(_text, _at))
            ++_at;
        return {begin, _at - begin, separator};
    }

    QStringView _text;
    const NumberSigns &_signs;
    qsizetype _at;
};

/// What the separators of a numeral mean.
class Separators
{
public:
    Separators(QStringView text, const Chunks &chunks, const NumberSigns &signs)
        : _text(text)
        , _chunks(chunks)
        , _signs(signs)
        , _last(chunks.back().separator)
        , _count(std::count_if(chunks.begin() + 1, chunks.end(),
                               [this](const Chunk &chunk) { return chunk.separator == _last; }))
    {
    }

    /// Of the last one; the others are of groups.
    SeparatorRole roleOfLast() const
    {
        if (_count > 1)
            return _count == count() && isEven(_chunks.size()) ? SeparatorRole::Groups
                                                               : SeparatorRole::Uneven;
        if (_last == ArabicPoint || (_signs.isPoint(_last) && !_signs.isGroup(_last)))
            return roleOfPoint();
        return count() == 1 ? roleOfOnlyOne() : roleBehindOthers();
    }

    /// Whether the one separator could be of the other role by the look of its digits.
    bool isTwofold() const
    {
        return count() == 1 && isOfBothRoles(_last) && isEven(_chunks.size());
    }

    bool areOwn(SeparatorRole roleOfLast) const
    {
        const bool isOwnLast =
            roleOfLast == SeparatorRole::Point ? _signs.isPoint(_last) : _signs.isGroup(_last);
        return isOwnLast &&
               std::all_of(_chunks.begin() + 1, _chunks.end() - 1,
                           [this](const Chunk &chunk) { return _signs.isGroup(chunk.separator); });
    }

private:
    qsizetype count() const { return _chunks.size() - 1; }

    SeparatorRole roleOfPoint() const
    {
        return hasEvenIntegers() ? SeparatorRole::Point : SeparatorRole::Uneven;
    }

    SeparatorRole roleOfOnlyOne() const
    {
        if (isEven(_chunks.size()))
            return SeparatorRole::Groups;
        const bool isGroup = _signs.isGroup(_last) || isOfGroupsOnly(_last);
        return isGroup ? SeparatorRole::Uneven : roleOfPoint();
    }

    /// "1,234.56" in German: since another sign separates the groups, this is the point.
    SeparatorRole roleBehindOthers() const
    {
        const bool isBehindBlanks = isOfGroupsOnly(_chunks[1].separator);
        const bool isGroupAsWell =
            _signs.isGroup(_last) && isBehindBlanks && _chunks.back().length == NumeralGroupSize;
        return isOfGroupsOnly(_last) || isGroupAsWell ? SeparatorRole::Uneven : roleOfPoint();
    }

    /// Whether the digits before the last separator are one group or even groups.
    bool hasEvenIntegers() const
    {
        const auto isOther = [this](const Chunk &chunk) {
            return chunk.separator != _chunks[1].separator;
        };
        const qsizetype end = _chunks.size() - 1;
        return end <= 1 || (_chunks[1].separator != ArabicPoint && isEven(end) &&
                            std::none_of(_chunks.begin() + 1, _chunks.begin() + end, isOther));
    }

    /// Whether the chunks before \a end are groups.
    bool isEven(qsizetype end) const
    {
        const Chunk &first = _chunks.front();
        if (first.length == 0 || _text[first.begin] == u'0')
            return false;
        return isEvenlyCut(end, NumeralGroupSize, NumeralGroupSize) ||
               isEvenlyCut(end, _signs.groupSize, _signs.otherGroupSize);
    }

    bool isEvenlyCut(qsizetype end, qsizetype size, qsizetype otherSize) const
    {
        return _chunks[end - 1].length == size && _chunks.front().length <= otherSize &&
               std::all_of(_chunks.begin() + 1, _chunks.begin() + end - 1,
                           [otherSize](const Chunk &chunk) { return chunk.length == otherSize; });
    }

    QStringView _text;
    const Chunks &_chunks;
    const NumberSigns &_signs;
    const char16_t _last;
    const qsizetype _count;
};

/// From the first to the last that is no zero.
qsizetype significantDigits(QStringView text)
{
    const auto counts = [](QChar unit) { return unit != u'0' && unit != u'.'; };
    const auto first = std::find_if(text.begin(), text.end(), counts);
    if (first == text.end())
        return 0;
    const auto end = std::find_if(text.rbegin(), text.rend(), counts).base();
    return end - first - std::count(first, end, QChar(u'.'));
}

void append(Numeral &numeral, QStringView digits)
{
    numeral.digits.append(digits.utf16(), digits.size());
}

void decide(Numeral &numeral, QStringView text, const Chunks &chunks, const NumberSigns &signs)
{
    const Separators separators(text, chunks, signs);
    const SeparatorRole role = separators.roleOfLast();
    numeral.isPlain = false;
    numeral.isUneven = role == SeparatorRole::Uneven;
    numeral.isTwofold = !numeral.isUneven && separators.isTwofold();
    numeral.isOwn = separators.areOwn(role);
    numeral.hasGroups = role == SeparatorRole::Groups || chunks.size() > 2;
    if (role == SeparatorRole::Point)
        numeral.pointAt = chunks.back().begin - 1;
}
} // namespace

Numeral Numeral::at(QStringView folded, qsizetype position, const NumberSigns &signs)
{
    Scanner scanner(folded, position, signs);
    const Chunks chunks = scanner.chunks();
    Numeral numeral;
    numeral.begin = position;
    if (chunks.size() > 1)
        decide(numeral, folded, chunks, signs);
    if (!chunks.isEmpty() && numeral.isInteger() && scanner.skipLastPoint())
        numeral.isPlain = false;
    numeral.end = scanner.position();
    if (!chunks.isEmpty() && chunks.front().length == 0)
        numeral.digits.append(u'0');
    for (const Chunk &chunk : chunks) {
        if (numeral.pointAt >= 0 && chunk.begin == numeral.pointAt + 1)
            numeral.digits.append(u'.');
        append(numeral, folded.sliced(chunk.begin, chunk.length));
    }
    return numeral;
}

NSDecimalNumber Numeral::value() const
{
    const QStringView text(digits.data(), digits.size());
    const NSDecimalNumber value = NSDecimalNumber::decimalNumberWithString(text);
    const qsizetype count = significantDigits(text);
    const bool isExact = count <= MaximumDigits && (count == 0 || value != NSDecimalNumber());
    return isExact ? value : NSDecimalNumber::notANumber();
}

NSDecimalNumber Numeral::otherValue() const
{
    QVarLengthArray<char16_t, 48> others;
    for (const char16_t unit : digits) {
        if (unit != u'.')
            others.append(unit);
    }
    if (isInteger())
        others.insert(others.cend() - NumeralGroupSize, u'.');
    return NSDecimalNumber::decimalNumberWithString(QStringView(others.data(), others.size()));
}

void Numeral::addParts(const FoldedText &text, QList<KTReadingPart> *parts) const
{
    const QString written = QStringView(digits.data(), digits.size()).toString();
    const qsizetype integerEnd = pointAt < 0 ? end : pointAt;
    if (integerEnd > begin)
        parts->append(partOf(text, begin, integerEnd, u"integer"_s, written.section(u'.', 0, 0)));
    if (pointAt < 0)
        return;
    parts->append(partOf(text, pointAt, pointAt + 1, u"decimal"_s, u"."_s));
    parts->append(partOf(text, pointAt + 1, end, u"fraction"_s, written.section(u'.', 1)));
}
