#include "PlainText.h"

#include <algorithm>

namespace {
constexpr char16_t AnyDigit = u'0';
/// A zero at the beginning of a run.
constexpr char16_t FirstZero = u'1';
/// One at the end of the last run.
constexpr char16_t LastZero = u'2';
/// Any, where there are no others: nothing of such a text is left open.
constexpr char16_t OnlyZero = u'3';
} // namespace

PlainText::PlainText(QStringView text) : _text(text)
{
    _isPlain = text.size() <= LongestText && scan() && _runCount > 0;
    if (_isPlain)
        markZeros();
}

QStringView PlainText::between(qsizetype index) const
{
    return _text.sliced(run(index).end(), run(index + 1).begin - run(index).end());
}

bool PlainText::scan()
{
    bool isInRun = false;
    for (qsizetype at = 0; at < _text.size(); ++at) {
        const char16_t unit = _text[at].unicode();
        const bool isDigit = unit >= u'0' && unit <= u'9';
        _form[size_t(at)] = isDigit ? AnyDigit : unit;
        if (isDigit && !addDigit(at, isInRun))
            return false;
        isInRun = isDigit;
    }
    return true;
}

bool PlainText::addDigit(qsizetype at, bool goesOn)
{
    if (++_digitCount > MostDigits || (!goesOn && _runCount == MostRuns))
        return false;
    if (!goesOn)
        _runs[size_t(_runCount++)] = {at, 0, 0};
    Run &run = _runs[size_t(_runCount - 1)];
    ++run.length;
    run.value = run.value * 10 + (_text[at].unicode() - u'0');
    return true;
}

void PlainText::markZeros()
{
    if (isZero()) {
        std::replace(_form.begin(), _form.begin() + _text.size(), AnyDigit, OnlyZero);
        return;
    }
    const qsizetype last = run(_runCount - 1).end() - 1;
    if (_text[last] == AnyDigit)
        _form[size_t(last)] = LastZero;
    for (qsizetype index = 0; index < _runCount; ++index) {
        if (_text[run(index).begin] == AnyDigit)
            _form[size_t(run(index).begin)] = FirstZero;
    }
}

bool PlainText::isZero() const
{
    return std::all_of(_runs.begin(), _runs.begin() + _runCount,
                       [](const Run &run) { return run.value == 0; });
}
