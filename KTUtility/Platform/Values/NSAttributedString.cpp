#include "NSAttributedString.h"

#include "NSException.h"
#include "NSStringFormat.h"

#include <algorithm>

namespace {
using Run = QTextLayout::FormatRange;

Run makeRun(qsizetype start, qsizetype length, const QTextCharFormat &format)
{
    Run run;
    run.start = int(start);
    run.length = int(length);
    run.format = format;
    return run;
}

qsizetype endOf(const Run &run)
{
    return qsizetype(run.start) + run.length;
}

void checkRange(NSRange range, qsizetype length)
{
    if (range.location < 0 || range.length < 0 || range.location > length ||
        range.length > length - range.location)
        NSException::raise(NSRangeException,
                           NSString::stringWithFormat(u"range {%d, %d} beyond length %d",
                                                      range.location, range.length, length));
}

void merge(QTextCharFormat &format, const QTextCharFormat &added)
{
    format.merge(added);
    if (added.hasProperty(NSLinkAttributeName))
        format.setAnchor(true);
}
} // namespace

NSAttributedString::NSAttributedString(const QString &string, const QTextCharFormat &attributes)
    : _string(string)
{
    if (!string.isEmpty())
        addAttributes(attributes, {0, string.size()});
}

QTextCharFormat NSAttributedString::attributesAtIndex(qsizetype index) const
{
    const auto run = std::upper_bound(_formats.begin(), _formats.end(), index,
                                      [](qsizetype at, const Run &r) { return at < endOf(r); });
    return run != _formats.end() && run->start <= index ? run->format : QTextCharFormat();
}

QVariant NSAttributedString::attribute(int name, qsizetype atIndex) const
{
    return attributesAtIndex(atIndex).property(name);
}

void NSAttributedString::addAttribute(int name, const QVariant &value, NSRange range)
{
    QTextCharFormat format;
    format.setProperty(name, value);
    addAttributes(format, range);
}

/// Makes a run begin at \a position if one lies across it.
/// \return the index of the first run at or behind the position.
qsizetype NSAttributedString::splitAt(qsizetype position)
{
    const auto found = std::upper_bound(_formats.begin(), _formats.end(), position,
                                        [](qsizetype at, const Run &r) { return at < endOf(r); });
    const qsizetype index = found - _formats.begin();
    if (found == _formats.end() || found->start >= position)
        return index;
    const Run whole = *found;
    _formats[index].length = int(position - whole.start);
    _formats.insert(index + 1, makeRun(position, endOf(whole) - position, whole.format));
    return index + 1;
}

void NSAttributedString::addAttributes(const QTextCharFormat &attributes, NSRange range)
{
    checkRange(range, _string.size());
    qsizetype index = splitAt(range.location);
    splitAt(range.end());
    for (qsizetype position = range.location; position < range.end(); ++index) {
        const bool hasRun = index < _formats.size() && _formats[index].start < range.end();
        const qsizetype nextRun = hasRun ? _formats[index].start : range.end();
        if (position < nextRun)
            _formats.insert(index, makeRun(position, nextRun - position, QTextCharFormat()));
        merge(_formats[index].format, attributes);
        position = endOf(_formats[index]);
    }
}

bool operator==(const NSAttributedString &left, const NSAttributedString &right)
{
    return left._string == right._string && left._formats == right._formats;
}
