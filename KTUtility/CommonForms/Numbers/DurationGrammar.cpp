#include "DurationGrammar_p.h"

#include "Count_p.h"
#include "DurationSum_p.h"

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr int MinutesInAnHour = 60;
constexpr int HoursInADay = 24;
constexpr qsizetype MaximumFields = 4;

bool isPlainDigitAt(QStringView text, qsizetype index)
{
    return index < text.size() && text[index] >= u'0' && text[index] <= u'9';
}

NSDecimalNumber quotient(const NSDecimalNumber &left, int right)
{
    return left.decimalNumberByDividingBy(NSDecimalNumber(right), exactDecimals());
}

NSDecimalNumber valueOf(const DurationCount &count)
{
    return quotient(NSDecimalNumber(count.numerator), count.denominator);
}

/// A unit's word at a place of a text.
struct UnitMatch
{
    qsizetype length = 0;
    DurationWord word{DurationUnit::Second};
    bool isUndecided = false; ///< whether the word means several units
};

/// Among what a word means, the units that have a fixed length come first.
UnitMatch chosen(const PhraseTable<DurationWord>::Match &match, bool isBehindNumber)
{
    UnitMatch unit;
    int fixedCount = 0;
    for (const DurationWord &word : match.meanings) {
        if ((word.count == 0) != isBehindNumber)
            continue;
        const bool isFixed = word.unit > DurationUnit::Month;
        if (unit.length == 0 || (isFixed && fixedCount == 0))
            unit = {match.length, word, false};
        fixedCount += isFixed;
    }
    unit.isUndecided = fixedCount > 1;
    return unit;
}

/// "4:13:02.5", as it stands in a text.
struct Clock
{
    qsizetype end = 0; ///< 0 if there is none
    QVarLengthArray<QStringView, 4> fields;
    QStringView fraction;
};

class DurationReader
{
public:
    DurationReader(const FoldedText &text, const DurationVocabulary &vocabulary)
        : _text(text), _folded(text.text()), _vocabulary(vocabulary), _sum(text)
    {
    }

    TypedDecimal read()
    {
        _sum.takeSign(&_at);
        while (_at < _folded.size()) {
            skipSeparators();
            if (!readTerm())
                return _refusal.isNull() ? TypedDecimal() : TypedDecimal::refused(_refusal);
        }
        return _sum.isEmpty() ? TypedDecimal() : result();
    }

private:
    bool isAt(char16_t unit) const { return _at < _folded.size() && _folded[_at] == unit; }

    bool take(char16_t unit)
    {
        const bool isHere = isAt(unit);
        _at += isHere;
        return isHere;
    }

    // --- Between terms

    void skipSeparators()
    {
        if (_sum.isEmpty())
            return;
        while (take(u' ') || takeComma() || takeConjunction()) {
        }
    }

    bool takeComma()
    {
        const bool isComma =
            _at + 1 < _folded.size() && QStringView(u",;\u3001\u060C&").contains(_folded[_at]);
        _at += isComma;
        return isComma;
    }

    bool takeConjunction()
    {
        for (const DurationWords *words : {&_vocabulary.locale, &DurationWords::english()}) {
            const qsizetype length = words->conjunctions.longestAt(_folded, _at).length;
            if (length > 0 && _at + length < _folded.size()) {
                _at += length;
                return true;
            }
        }
        return false;
    }

    // --- Terms

    bool readTerm()
    {
        if (const Clock clock = clockHere(); clock.end > 0)
            return readClock(clock);
        const qsizetype begin = _at;
        _divisor = NSDecimalNumber(1);
        const UnitMatch whole = unitHere(false);
        if (whole.length > 0 && isWordEnd(_folded, _at)) {
            _at += whole.length;
            return add(begin, NSDecimalNumber(whole.word.count), whole.word.unit);
        }
        return readCountedUnit(begin);
    }

    bool readCountedUnit(qsizetype begin)
    {
        NSDecimalNumber count;
        if (!readCount(&count))
            return false;
        const qsizetype endOfCount = _at;
        take(u' ');
        if (isAt(u'-') && _at + 1 < _folded.size() && _folded[_at + 1].isLetter())
            ++_at; // "30-minute"
        if (!readUnit(begin, count)) {
            _at = endOfCount;
            return readUnitlessEnd(begin, count);
        }
        readCountBehind();
        return true;
    }

    /// "1.5", "1 1/2", "half an", "one and a half".
    bool readCount(NSDecimalNumber *count)
    {
        const Count number = Count::at(_folded, _at, _vocabulary.signs);
        if (number.kind == Count::Kind::Refused)
            return refuse(number.reason);
        if (number.kind == Count::Kind::None)
            return readCountWord(count);
        _at = number.end;
        *count = number.dividend();
        _divisor = number.divisor;
        readCountBehindNumber(count);
        return true;
    }

    /// "2 and a half hours".
    void readCountBehindNumber(NSDecimalNumber *count)
    {
        const auto [length, word] = countWordAt(_at + isAt(u' '), DurationCount::Place::Behind);
        if (length == 0)
            return;
        _at += isAt(u' ') + length;
        const NSDecimalNumber part =
            valueOf(word).decimalNumberByMultiplyingBy(_divisor, exactDecimals());
        *count = count->decimalNumberByAdding(part, exactDecimals());
    }

    bool readCountWord(NSDecimalNumber *count)
    {
        const auto [length, word] = countWordAt(_at, DurationCount::Place::Before);
        _at += length;
        *count = valueOf(word);
        return length > 0;
    }

    std::pair<qsizetype, DurationCount> countWordAt(qsizetype position,
                                                    DurationCount::Place place) const
    {
        for (const DurationWords *words : {&_vocabulary.locale, &DurationWords::english()}) {
            const auto match = words->counts.longestAt(_folded, position);
            for (const DurationCount &count : match.meanings) {
                if (count.place == place && isWordEnd(_folded, position))
                    return {match.length, count};
            }
        }
        return {0, {DurationCount::Place::Before, 0, 1}};
    }

    bool readUnit(qsizetype begin, const NSDecimalNumber &count)
    {
        UnitMatch unit = unitHere(true);
        if (unit.length == 0)
            unit = derivedUnitHere();
        if (unit.length == 0)
            return false;
        if (unit.isUndecided)
            return refuse(u"A word of the text means several units."_s);
        _at += unit.length;
        take(u'.'); // the word's, also in "1h.30m"
        return add(begin, count, unit.word.unit);
    }

    bool add(qsizetype begin, const NSDecimalNumber &count, DurationUnit unit)
    {
        return _sum.add(begin, _at, count, unit, _divisor) ||
               refuse(u"The units do not stand from the "
                      "largest to the smallest."_s);
    }

    /// The longest; the field's own words before those of the locale and English ones.
    UnitMatch unitHere(bool isBehindNumber) const
    {
        UnitMatch best;
        for (const PhraseTable<DurationWord> *table :
             {&_vocabulary.program, &_vocabulary.locale.units, &DurationWords::english().units}) {
            const UnitMatch unit = chosen(table->longestAt(_folded, _at), isBehindNumber);
            if (unit.length > best.length)
                best = unit;
        }
        return best;
    }

    UnitMatch derivedUnitHere() const
    {
        qsizetype end = _at;
        while (end < _folded.size() && (_folded[end].isLetter() || _folded[end].isMark()))
            ++end;
        const QStringView word = _folded.sliced(_at, end - _at);
        std::optional<DurationUnit> unit = _vocabulary.locale.derived(word);
        if (!unit)
            unit = DurationWords::english().derived(word);
        return unit ? UnitMatch{word.size(), {*unit}, false} : UnitMatch();
    }

    /// "an hour and a half", "2 Stunden und eine halbe" not.
    void readCountBehind()
    {
        const qsizetype begin = _at + isAt(u' ');
        const auto [length, word] = countWordAt(begin, DurationCount::Place::Behind);
        if (length == 0)
            return;
        _at = begin + length;
        _sum.addToLast(begin, _at, valueOf(word));
    }

    /// "1h30", "2m30", "2 h 30": the next smaller unit needs no word; behind a blank it has two digits.
    bool readUnitlessEnd(qsizetype begin, const NSDecimalNumber &count)
    {
        const bool isBehindWord = begin > 0 && (_folded[begin - 1].isLetter() ||
                                                (_folded[begin - 1] == u' ' && _at - begin == 2));
        const std::optional<DurationUnit> last = _sum.last();
        if (!isBehindWord || _at < _folded.size() || !count.isInteger() ||
            _divisor != NSDecimalNumber(1) ||
            !(last == DurationUnit::Hour || last == DurationUnit::Minute) ||
            count >= NSDecimalNumber(MinutesInAnHour))
            return false;
        return add(begin, count, DurationUnit(int(*last) + 1));
    }

    // --- Clocks

    Clock clockHere() const
    {
        Clock clock;
        qsizetype at = _at;
        const auto takeDigits = [&] {
            const qsizetype begin = at;
            while (isPlainDigitAt(_folded, at))
                ++at;
            return _folded.sliced(begin, at - begin);
        };
        clock.fields.append(takeDigits());
        while (clock.fields.size() < MaximumFields && at < _folded.size() && _folded[at] == u':' &&
               isPlainDigitAt(_folded, at + 1)) {
            ++at;
            clock.fields.append(takeDigits());
        }
        if (clock.fields.size() < 2 || clock.fields.front().isEmpty())
            return {};
        if (at < _folded.size() && (_folded[at] == u'.' || _folded[at] == u',') &&
            isPlainDigitAt(_folded, at + 1)) {
            ++at;
            clock.fraction = takeDigits();
        }
        clock.end = at;
        return clock;
    }

    /// Hours and minutes unless there is a fraction or a unit behind it.
    bool readClock(const Clock &clock)
    {
        const qsizetype begin = _at;
        _at = clock.end;
        const std::optional<DurationUnit> first = firstUnitOf(clock);
        if (!first || _at < _folded.size() || !isRight(clock, *first))
            return false;
        _isTwofold = clock.fields.size() == 2 && clock.fraction.isEmpty() && _sum.isEmpty() &&
                     _at == clock.end;
        _hasClock = true;
        qsizetype start = begin;
        for (qsizetype index = 0; index < clock.fields.size(); ++index) {
            const bool isLast = index + 1 == clock.fields.size();
            const QStringView field = clock.fields[index];
            const qsizetype end = isLast ? clock.end : start + field.size();
            const QStringView fraction = isLast ? clock.fraction : QStringView();
            if (!_sum.add(start, end, valueOfField(field, fraction),
                          DurationUnit(int(*first) + int(index))))
                return false;
            start = end + 1;
        }
        return true;
    }

    std::optional<DurationUnit> firstUnitOf(const Clock &clock)
    {
        const qsizetype end = _at;
        take(u' ');
        const UnitMatch unit = unitHere(true);
        if (unit.length == 0) {
            _at = end;
            return firstUnitOfBareClock(clock);
        }
        _at += unit.length;
        const bool isRight = unit.word.unit == DurationUnit::Hour ||
                             (unit.word.unit == DurationUnit::Minute && clock.fields.size() == 2);
        return isRight ? std::optional(unit.word.unit) : std::nullopt;
    }

    static DurationUnit firstUnitOfBareClock(const Clock &clock)
    {
        if (clock.fields.size() == MaximumFields)
            return DurationUnit::Day;
        const bool isOfMinutes = clock.fields.size() == 2 && !clock.fraction.isEmpty();
        return isOfMinutes ? DurationUnit::Minute : DurationUnit::Hour;
    }

    /// Two digits below 60 behind each colon; a fraction of seconds only; a day's hours behind days.
    bool isRight(const Clock &clock, DurationUnit first) const
    {
        for (qsizetype index = 1; index < clock.fields.size(); ++index) {
            const int limit = index + 2 < clock.fields.size() && first == DurationUnit::Day
                                  ? HoursInADay
                                  : MinutesInAnHour;
            if (clock.fields[index].size() > 2 || clock.fields[index].toInt() >= limit ||
                (clock.fields[index].size() < 2 && limit != HoursInADay))
                return false;
        }
        const bool hasSeconds = clock.fields.size() >= 3 || first == DurationUnit::Minute;
        const bool isOfOneDay =
            _sum.isEmpty() || (first == DurationUnit::Hour && clock.fields.front().size() <= 2 &&
                               clock.fields.front().toInt() < HoursInADay);
        return isOfOneDay && (hasSeconds || clock.fraction.isEmpty());
    }

    static NSDecimalNumber valueOfField(QStringView field, QStringView fraction)
    {
        const QString digits = fraction.isEmpty() ? field.toString() : field + u'.' + fraction;
        return NSDecimalNumber::decimalNumberWithString(digits);
    }

    // --- Result

    bool refuse(const QString &reason)
    {
        _refusal = reason;
        return false;
    }

    TypedDecimal result() const
    {
        TypedDecimal typed = _sum.result(_hasClock ? u"common.clock"_s : u"common.units"_s);
        if (typed.isRead() && _isTwofold) {
            // Minutes and seconds are a sixtieth of hours and minutes.
            typed.reading.alternative = QVariant::fromValue(quotient(typed.value, MinutesInAnHour));
            typed.reading.alternativeForm = typed.reading.form;
        }
        return typed;
    }

    const FoldedText &_text;
    const QStringView _folded;
    const DurationVocabulary &_vocabulary;
    DurationSum _sum;
    qsizetype _at = 0;
    NSDecimalNumber _divisor; ///< of the count that was read last: a third has no end
    QString _refusal;
    bool _hasClock = false;
    bool _isTwofold = false;
};
} // namespace

TypedDecimal DurationGrammar::read(const FoldedText &text, const DurationVocabulary &vocabulary)
{
    return DurationReader(text, vocabulary).read();
}
