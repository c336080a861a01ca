#pragma once

#include "PlainWays.h"

/// Numbers and amounts: the fraction begins behind one of the runs of digits, or nowhere, and the
/// number may be negative.
class PlainNumbers : public PlainWays
{
public:
    /// \param isMoney whether short names of currencies may stand beside the digits.
    explicit PlainNumbers(bool isMoney) : _isMoney(isMoney) {}

    int countFor(const PlainText &text) const override;
    QVariant valueOf(const PlainText &text, int way) override;

private:
    bool isBeside(QStringView signs) const;

    bool _isMoney;
};
