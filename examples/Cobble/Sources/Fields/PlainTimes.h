#pragma once

#include "PlainWays.h"
#include "ZoneDays.h"

/// Times of day, all of which are on one day.
class PlainTimes : public PlainWays
{
public:
    PlainTimes();

    int countFor(const PlainText &text) const override;
    QVariant valueOf(const PlainText &text, int way) override;
    void note(const PlainText &text, const QVariant &stored) override;

private:
    ZoneDays _days;
    /// Whether the clock shows each time once today, for which times are read at first.
    bool _isPlainDay;
    QDate _day;
};
