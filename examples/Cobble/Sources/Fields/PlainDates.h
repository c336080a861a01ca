#pragma once

#include "PlainWays.h"
#include "ZoneDays.h"

/// Dates with four digits of the year, and dates with times: the day stands before the month, or
/// behind it.
class PlainDates : public PlainWays
{
public:
    int countFor(const PlainText &text) const override;
    size_t kindOf(const PlainText &text) const override;
    bool isPossible(const PlainText &text, int way) const override;
    QVariant valueOf(const PlainText &text, int way) override;
    void note(const PlainText &text, const QVariant &stored) override;

private:
    std::optional<qint64> timeOf(const PlainText &text, int way) const;

    ZoneDays _days;
    /// That of dates without one, in milliseconds.
    std::optional<qint64> _usualTime;
};
