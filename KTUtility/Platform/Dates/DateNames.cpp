#include "DateNames_p.h"

#include <KTUtility/Platform/Text/ICU_p.h>

using namespace KTPrivate;

namespace {
/// No name is longer; what a text has behind that does not matter.
constexpr qsizetype LongestName = 64;

struct Range
{
    char16_t first;
    char16_t last;
};

/// The units whose case folding is more than one unit ("ß" is "ss"), and surrogates.
constexpr std::array ManyUnits{Range{0x00DF, 0x00DF}, Range{0x0130, 0x0130}, Range{0x0149, 0x0149},
                               Range{0x01F0, 0x01F0}, Range{0x0390, 0x0390}, Range{0x03B0, 0x03B0},
                               Range{0x0587, 0x0587}, Range{0x1E96, 0x1E9E}, Range{0x1F50, 0x1FFC},
                               Range{0xD800, 0xDFFF}, Range{0xFB00, 0xFB17}};

bool foldsToOneUnit(char16_t unit)
{
    if (unit < ManyUnits.front().first)
        return true;
    for (const Range &range : ManyUnits) {
        if (unit >= range.first && unit <= range.last)
            return false;
    }
    return true;
}

char16_t foldedUnit(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'A' && unit <= u'Z' ? char16_t(unit + 0x20) : unit;
    return QChar(unit).toCaseFolded().unicode();
}

/// The start of a text, folded, up to what does not fold to one unit.
struct FoldedStart
{
    FoldedStart(QStringView text, qsizetype longest)
    {
        const qsizetype end = qMin(qMin(text.size(), longest), LongestName);
        while (length < end && foldsToOneUnit(text[length].unicode())) {
            units[size_t(length)] = foldedUnit(text[length].unicode());
            ++length;
        }
        isCut = length < end;
    }

    QStringView view() const { return {units.data(), length}; }

    std::array<char16_t, size_t(LongestName)> units;
    qsizetype length = 0;
    bool isCut = false;
};

/// How much of \a text the name takes; 0 if it does not stand there.
qsizetype lengthOfMatch(QStringView text, QStringView name)
{
    if (text.startsWith(name))
        return name.size();
    const bool hasPoint = name.endsWith(u'.');
    return hasPoint && text.startsWith(name.chopped(1)) ? name.size() - 1 : 0;
}
} // namespace

DateNameList::DateNameList(const icu::UnicodeString *names, int32_t count, int32_t first)
{
    for (int32_t index = first; index < count; ++index) {
        icu::UnicodeString folded = names[index];
        const QString name = ICU::stringOf(folded.foldCase());
        if (name.isEmpty())
            continue;
        _names.push_back({name, index});
        _firstUnits |= quint64(1) << (name[0].unicode() % 64);
        _longest = qMax(_longest, name.size());
    }
}

DateName DateNameList::find(QStringView text, qsizetype longerThan) const
{
    if (text.isEmpty() || _longest > LongestName)
        return {.isDecided = text.isEmpty()};
    if (foldsToOneUnit(text[0].unicode()) && !mayStart(foldedUnit(text[0].unicode())))
        return {};
    const FoldedStart start(text, _longest);
    return start.length > 0 ? findFolded(start.view(), start.isCut, longerThan)
                            : DateName{.isDecided = !start.isCut};
}

DateName DateNameList::findFolded(QStringView start, bool isCut, qsizetype longerThan) const
{
    DateName best{.length = longerThan};
    for (const Name &name : _names) {
        // No name takes more of a text than it has units itself.
        if (name.folded[0] != start[0] || name.folded.size() <= best.length)
            continue;
        if (isCut && QStringView(name.folded).startsWith(start))
            best.isDecided = false;
        const qsizetype length = lengthOfMatch(start, name.folded);
        if (length > best.length) {
            best.index = name.index;
            best.length = length;
        }
    }
    best.length = best.index < 0 ? 0 : best.length;
    return best;
}

void DateNames::noteStarts()
{
    for (const auto *const lists : {&months, &standaloneMonths}) {
        for (const DateNameList &list : *lists)
            startsOfMonths |= list.firstUnits();
    }
    for (const DateNameList &list : weekdays)
        startsOfWeekdays |= list.firstUnits();
    for (const DateNameList &list : halvesOfDay)
        startsOfHalves |= list.firstUnits();
}
