#include "ISODuration_p.h"

#include "DurationSum_p.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Designator
{
    char16_t letter;
    bool isOfTime;
    DurationUnit unit;
};

constexpr Designator Designators[] = {
    {u'y', false, DurationUnit::Year},  {u'm', false, DurationUnit::Month},
    {u'w', false, DurationUnit::Week},  {u'd', false, DurationUnit::Day},
    {u'h', true, DurationUnit::Hour},   {u'm', true, DurationUnit::Minute},
    {u's', true, DurationUnit::Second},
};

class ISODurationReader
{
public:
    explicit ISODurationReader(const FoldedText &text) : _folded(text.text()), _sum(text) {}

    TypedDecimal read()
    {
        _sum.takeSign(&_at);
        if (!take(u'p'))
            return {};
        while (_at < _folded.size()) {
            if (!readOne())
                return {};
        }
        return _sum.isEmpty() || _isTimeEmpty ? TypedDecimal() : _sum.result(u"iso8601.duration"_s);
    }

private:
    bool take(char16_t unit)
    {
        const bool isHere = _at < _folded.size() && _folded[_at] == unit;
        _at += isHere;
        return isHere;
    }

    bool readOne()
    {
        if (!_isTime && take(u't')) {
            _isTime = true;
            _isTimeEmpty = true;
        }
        const qsizetype begin = _at;
        const NSDecimalNumber count = number();
        const Designator *const designator = designatorHere();
        if (count.isNaN() || !designator)
            return false;
        ++_at;
        _isTimeEmpty = false;
        return _sum.add(begin, _at, count, designator->unit);
    }

    /// Not-a-number if there is none, or if one with a fraction stands before it.
    NSDecimalNumber number()
    {
        const qsizetype begin = _at;
        QVarLengthArray<char16_t, 32> digits;
        while (_at < _folded.size() && isOfNumber(_folded[_at].unicode())) {
            const bool isDigit = _folded[_at].isDigit();
            if (_hasFraction || (!isDigit && _at == begin))
                return NSDecimalNumber::notANumber();
            digits.append(isDigit ? _folded[_at].unicode() : u'.');
            ++_at;
        }
        const QStringView text(digits.data(), digits.size());
        const qsizetype points = text.count(u'.');
        if (text.isEmpty() || points > 1 || text.endsWith(u'.'))
            return NSDecimalNumber::notANumber();
        _hasFraction = points == 1;
        return NSDecimalNumber::decimalNumberWithString(text);
    }

    static bool isOfNumber(char16_t unit)
    {
        return (unit >= u'0' && unit <= u'9') || unit == u'.' || unit == u',';
    }

    const Designator *designatorHere() const
    {
        for (const Designator &designator : Designators) {
            if (_at < _folded.size() && _folded[_at] == designator.letter &&
                designator.isOfTime == _isTime)
                return &designator;
        }
        return nullptr;
    }

    const QStringView _folded;
    DurationSum _sum;
    qsizetype _at = 0;
    bool _isTime = false;
    bool _isTimeEmpty = false;
    bool _hasFraction = false;
};
} // namespace

TypedDecimal ISODuration::read(const FoldedText &text)
{
    return ISODurationReader(text).read();
}
