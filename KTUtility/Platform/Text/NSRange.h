#pragma once

#include <QtGlobal>

/// A part of a text or list: where it starts and how long it is, in UTF-16 units or elements.
struct NSRange
{
    /// Where it starts.
    qsizetype location = 0;
    /// How long it is.
    qsizetype length = 0;

    /// The position behind the last one.
    qsizetype end() const { return location + length; }

    friend bool operator==(const NSRange &, const NSRange &) = default;
};
