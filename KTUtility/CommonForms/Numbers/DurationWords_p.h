#pragma once

// Private to the library. For what reads durations, and for columns of them.

#include <KTUtility/CommonForms/Text/PhraseTable_p.h>

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <memory>

namespace KTPrivate {
/// Units of time from the largest to the smallest. Years and months have no fixed length.
enum class DurationUnit {
    Year,
    Month,
    Week,
    Day,
    Hour,
    Minute,
    Second,
    Millisecond,
    Microsecond,
    Nanosecond
};

/// CLDR's name: "hour".
KTUTILITY_EXPORT QString nameOf(DurationUnit unit);
/// How many seconds; zero without a fixed length.
KTUTILITY_EXPORT NSDecimalNumber secondsOf(DurationUnit unit);

/// What a word says in a duration.
struct DurationWord
{
    DurationUnit unit;
    int count = 0; ///< "שעתיים" is two hours; 0 for words behind a number

    friend bool operator==(const DurationWord &, const DurationWord &) = default;
};

/// Words that belong to numbers in durations, in parts of one.
struct DurationCount
{
    enum class Place { Before, Behind };

    Place place;     ///< "half an hour", "an hour and a half"
    int numerator;   ///< how many
    int denominator; ///< of which parts
    bool operator==(const DurationCount &) const = default;
};

/// What people in a locale write in durations, from CLDR's units in all widths and plurals.
class KTUTILITY_EXPORT DurationWords
{
public:
    static std::shared_ptr<const DurationWords> of(const NSLocale &locale);
    static const DurationWords &english();

    explicit DurationWords(const QByteArray &locale);

    /// The units, the names in full before the shorter ones.
    PhraseTable<DurationWord> units;
    /// "a", "half an", "and a half".
    PhraseTable<DurationCount> counts;
    /// "and", as lists have it.
    PhraseTable<int> conjunctions;

    /// The unit that a folded word is a case or an abbreviation of ("минуту", "seg"); nothing if there
    /// is none, or if there are several.
    std::optional<DurationUnit> derived(QStringView word) const;

private:
    using Name = std::pair<QString, DurationUnit>;

    std::span<const Name> namesLike(QStringView word) const;
    void addUnits(DurationUnit unit, const QByteArray &locale);
    void addRelativeUnits(const QByteArray &locale);
    void addUnit(const QString &word, const DurationWord &meaning);
    void addExtras(const QByteArray &language);
    void addConjunction(const QByteArray &locale);
    std::optional<DurationUnit> inflected(QStringView word) const;
    std::optional<DurationUnit> abbreviated(QStringView word) const;

    std::vector<Name> _names; ///< folded and sorted
    bool _hasCases = true;    ///< whether the language has forms of words that CLDR does not list
};
} // namespace KTPrivate
