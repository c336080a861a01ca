#pragma once

#include "DateCharacters_p.h"

#include <KTUtility/KTUtilityExport.h>

#include <unicode/unistr.h>

#include <QString>
#include <QStringView>

#include <array>
#include <vector>

namespace KTPrivate {
/// What a look for a name gave.
struct DateName
{
    int index = -1;        ///< in its list; -1 if no name stands there
    qsizetype length = 0;  ///< in the text
    bool isDecided = true; ///< false if only ICU can decide
};

/// The names of one kind and width, ready to be found in a text as ICU finds them: the longest
/// counts, upper and lower case are the same, and a point at a name's end may be missing.
class KTUTILITY_EXPORT DateNameList
{
public:
    DateNameList() = default;
    /// \param first the index of the first name that counts.
    DateNameList(const icu::UnicodeString *names, int32_t count, int32_t first);

    /// The name at the start of \a text, if it takes more than some units.
    DateName find(QStringView text, qsizetype longerThan = 0) const;
    /// The units that names start with, a bit for each remainder by 64; see bitOf().
    quint64 firstUnits() const { return _firstUnits; }
    /// The bit of an ASCII character, be it upper or lower case.
    static quint64 bitOf(char16_t unit)
    {
        return quint64(1) << (DateCharacters::lowered(unit) % 64);
    }

private:
    struct Name
    {
        QString folded;
        int index;
    };
    DateName findFolded(QStringView start, bool isCut, qsizetype longerThan) const;
    bool mayStart(char16_t folded) const { return _firstUnits >> (folded % 64) & 1; }

    std::vector<Name> _names;
    quint64 _firstUnits = 0;
    qsizetype _longest = 0;
};

/// Lists of one kind that are tried together: the longest name decides, of two equal ones that of
/// the first list.
template<size_t Count>
DateName findLongestName(const std::array<DateNameList, Count> &lists, QStringView text)
{
    DateName longest;
    for (const DateNameList &list : lists) {
        const DateName name = list.find(text, longest.length);
        if (!name.isDecided)
            return name;
        if (name.index >= 0)
            longest = name;
    }
    return longest;
}

/// Lists of one kind in the order in which they are tried; the first that has a name decides.
template<size_t Count>
DateName findName(const std::array<DateNameList, Count> &lists, QStringView text)
{
    DateName name;
    for (const DateNameList &list : lists) {
        name = list.find(text);
        if (name.index >= 0 || !name.isDecided)
            break;
    }
    return name;
}

/// All names that a pattern may ask for.
struct KTUTILITY_EXPORT DateNames
{
    std::array<DateNameList, 2> months;           ///< wide, abbreviated
    std::array<DateNameList, 2> standaloneMonths; ///< wide, abbreviated
    std::array<DateNameList, 4> weekdays;         ///< wide, abbreviated, short, narrow
    std::array<DateNameList, 2> halvesOfDay;      ///< "AM", "a"

    /// The months that a letter of a pattern asks for.
    const std::array<DateNameList, 2> &monthsOf(char16_t letter) const
    {
        return letter == u'L' ? standaloneMonths : months;
    }

    // --- What names of a kind start with, as DateNameList::firstUnits()

    quint64 startsOfMonths = 0;
    quint64 startsOfWeekdays = 0;
    quint64 startsOfHalves = 0;

    void noteStarts();
};
} // namespace KTPrivate
