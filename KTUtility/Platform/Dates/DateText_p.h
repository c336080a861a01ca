#pragma once

#include "DateCharacters_p.h"

#include <QList>
#include <QStringView>

#include <optional>

namespace KTPrivate {
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

private:
    char16_t unitAt(qsizetype at) const
    {
        return at < _start.size() ? _start[at].unicode() : char16_t(0);
    }

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
