#pragma once

#include "DateCharacters_p.h"
#include "DateNames_p.h"
#include "DatePattern_p.h"

#include <QList>
#include <QStringView>

#include <array>
#include <optional>

namespace KTPrivate {
/// What a text says about a date.
struct DateFound
{
    /// A field that the text did not say.
    static constexpr int Unknown = -1;

    int year = Unknown;
    int month = Unknown;
    int day = Unknown;
    int hourOfDay = Unknown;
    int hour = Unknown; ///< of the half day, 0 to 11 (more is rejected in the end)
    int half = Unknown; ///< 0 AM, 1 PM
    int minute = Unknown;
    int second = Unknown;
    bool isHalfDayLast = false; ///< whether hour and half were said after hourOfDay
    bool hasAmbiguousYear = false;
};

enum class DateAnswer { Matched, Rejected, Undecided };

/// What attempts to read one text have in common, remembered from one to the next.
struct DateMemory
{
    /// The name that the text begins with in some lists: all patterns that begin with a name look
    /// for the same. The lists have to outlive this.
    template<size_t Count>
    const DateName &leadingName(const std::array<DateNameList, Count> &lists, QStringView text)
    {
        if (soughtNames != &lists) {
            name = findLongestName(lists, text);
            soughtNames = &lists;
        }
        return name;
    }

    const void *soughtNames = nullptr;
    DateName name;

    /// The generation of the zones' data, looked at once.
    std::optional<unsigned> zoneGeneration;

    // --- How far the text fits the date before a time: a dozen patterns differ in the time only.

    bool knows(const DatePrefix &date, const void *itsEnvironment) const
    {
        return date.number != 0 && date.number == prefix && itsEnvironment == environment;
    }

    /// Whose names they are.
    const void *environment = nullptr;
    quint64 prefix = 0; ///< its number; 0 if nothing is remembered
    DateAnswer answer = DateAnswer::Undecided;
    DateFound found;
    qsizetype position = 0;
};
/// A text in which a date is sought, looked at once for all attempts to read it.
///
/// Only its first 1,024 units are read: no pattern means more, and a text may be megabytes long.
/// The text has to outlive this.
class DateText
{
public:
    static constexpr qsizetype MaximalLength = 1024;

    explicit DateText(QStringView text)
        : _length(text.size()), _start(text.first(qMin(text.size(), MaximalLength)))
    {
        noteLead();
    }

    /// The length of the whole text.
    qsizetype length() const { return _length; }
    /// The part that is read.
    QStringView start() const { return _start; }
    /// Whether that part is all.
    bool isComplete() const { return _start.size() == _length; }

    // --- What it starts with

    /// Where the first character that is no whitespace stands.
    qsizetype lead() const { return _lead; }
    /// That character; 0 if there is none.
    char16_t leadingUnit() const { return _leadingUnit; }
    /// How many digits 0 to 9 stand there.
    qsizetype leadingDigits() const { return _leadingDigits; }
    /// The character behind them; 0 if there is none.
    char16_t unitAfterDigits() const { return unitAt(_lead + _leadingDigits); }
    /// The name of some lists that stands there. The lists have to outlive this.
    template<size_t Count>
    const DateName &leadingName(const std::array<DateNameList, Count> &lists) const
    {
        return _memory.leadingName(lists, _start.sliced(_lead));
    }

    /// What attempts to read the text remember for the next ones.
    DateMemory &memory() const { return _memory; }

    /// The character at a place; 0 behind the end.
    char16_t unitAt(qsizetype at) const
    {
        return at < _start.size() ? _start[at].unicode() : char16_t(0);
    }

private:
    void noteLead()
    {
        while (_lead < _start.size() &&
               DateCharacters::isWhitespaceOfTexts(_start[_lead].unicode()))
            ++_lead;
        _leadingUnit = unitAt(_lead);
        while (DateCharacters::isDigit(unitAt(_lead + _leadingDigits)))
            ++_leadingDigits;
    }

    qsizetype _length;
    QStringView _start;
    qsizetype _lead = 0;
    qsizetype _leadingDigits = 0;
    char16_t _leadingUnit = 0;
    mutable DateMemory _memory;
};

/// The hour, 0 to 99, that a text is and says nothing else of: one or two digits of any script,
/// perhaps with a colon behind them ("5", "17:", "٥").
inline std::optional<int> bareHourIn(QStringView text)
{
    constexpr qsizetype MostUnits = 5; // two digits of two units each, and the colon
    if (text.size() > MostUnits)
        return {};
    const QList<uint> digits = (text.endsWith(u':') ? text.chopped(1) : text).toUcs4();
    int hour = 0;
    for (const uint digit : digits) {
        if (QChar::digitValue(digit) < 0)
            return {};
        hour = hour * 10 + QChar::digitValue(digit);
    }
    return digits.size() == 1 || digits.size() == 2 ? std::optional(hour) : std::nullopt;
}

/// What reading a text gave.
struct DateMatch
{
    qint64 time = 0;      ///< milliseconds since 1970
    qsizetype length = 0; ///< what was consumed, or how far the text fitted
    /// What a clock shows then, as if it were UTC. Where summer time skips the time that the text
    /// says, it is that time all the same.
    qint64 localTime = 0;
};
} // namespace KTPrivate
