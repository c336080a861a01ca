#include "September_p.h"

#include <QLatin1String>

using namespace KTPrivate;

namespace {
bool isAbbreviation(QStringView word)
{
    return word.compare(u"sep", Qt::CaseInsensitive) == 0 ||
           word.compare(u"sept", Qt::CaseInsensitive) == 0;
}

qsizetype endOfWord(QStringView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && text[end].isLetter())
        ++end;
    return end;
}
} // namespace

September::September(QStringView source) : _source(source)
{
    qsizetype copied = 0;
    for (qsizetype at = 0; at < source.size();) {
        const qsizetype end = endOfWord(source, at);
        if (isAbbreviation(source.sliced(at, end - at))) {
            _text += source.sliced(copied, at - copied);
            _text += u"September";
            _changes.push_back({_text.size(), 9 - (end - at)});
            copied = end;
        }
        at = qMax(end, at + 1);
    }
    _hasChanges = !_changes.empty();
    if (_hasChanges)
        _text += source.sliced(copied);
}

qsizetype September::lengthInSource(qsizetype length) const
{
    qsizetype result = length;
    for (const Change &change : _changes) {
        if (length >= change.end)
            result -= change.added;
    }
    return result;
}
