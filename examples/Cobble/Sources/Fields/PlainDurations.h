#pragma once

#include "PlainWays.h"

/// Durations as clocks show them: hours, minutes and seconds, or two of these.
class PlainDurations : public PlainWays
{
public:
    int countFor(const PlainText &text) const override;
    QVariant valueOf(const PlainText &text, int way) override;
};
