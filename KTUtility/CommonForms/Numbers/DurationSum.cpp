#include "DurationSum_p.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

void DurationSum::takeSign(qsizetype *position)
{
    const QStringView folded = _text.text();
    if (*position >= folded.size() || (folded[*position] != u'-' && folded[*position] != u'+'))
        return;
    _isNegative = folded[*position] == u'-';
    _parts.append(partOf(_text, *position, *position + 1,
                         _isNegative ? u"minusSign"_s : u"plusSign"_s,
                         _isNegative ? u"-"_s : u"+"_s));
    ++*position;
    if (*position < folded.size() && folded[*position] == u' ')
        ++*position;
}

bool DurationSum::add(qsizetype begin, qsizetype end, const NSDecimalNumber &count,
                      DurationUnit unit, const NSDecimalNumber &divisor)
{
    if (_last && unit <= *_last)
        return false;
    _last = unit;
    addSeconds(count, unit, divisor);
    const NSDecimalNumber value = count.decimalNumberByDividingBy(divisor, exactDecimals());
    _parts.append(partOf(_text, begin, end, nameOf(unit), value.description()));
    return true;
}

void DurationSum::addToLast(qsizetype begin, qsizetype end, const NSDecimalNumber &count)
{
    addSeconds(count, *_last, NSDecimalNumber(1));
    _parts.append(partOf(_text, begin, end, nameOf(*_last), count.description()));
}

void DurationSum::addSeconds(const NSDecimalNumber &count, DurationUnit unit,
                             const NSDecimalNumber &divisor)
{
    _isOfFixedLength &= unit > DurationUnit::Month;
    const NSDecimalNumber seconds =
        count.decimalNumberByMultiplyingBy(secondsOf(unit), exactDecimals())
            .decimalNumberByDividingBy(divisor, exactDecimals());
    _seconds = _seconds.decimalNumberByAdding(seconds, exactDecimals());
}

TypedDecimal DurationSum::result(const QString &form) const
{
    if (!_isOfFixedLength)
        return TypedDecimal::refused(u"Months and years have no fixed length."_s);
    if (_seconds.isNaN())
        return TypedDecimal::refused(u"The duration is too long."_s);
    TypedDecimal typed;
    typed.outcome = TypedDecimal::Outcome::Read;
    typed.value = _isNegative ? _seconds.decimalNumberByNegating() : _seconds;
    typed.reading.form = form;
    typed.reading.parts = _parts;
    return typed;
}
