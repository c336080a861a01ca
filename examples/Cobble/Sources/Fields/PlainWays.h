#pragma once

#include "PlainText.h"

#include <QVariant>

#include <memory>

class FieldReader;

/// The ways in which the digits of a text can be taken for a value of a type: the numbers of a date as
/// day, month and year, or as month, day and year.
class PlainWays
{
public:
    /// Those of a reader's type; null where texts are not read by their digits.
    static std::unique_ptr<PlainWays> of(const FieldReader &reader);

    virtual ~PlainWays() = default;

    /// How many ways there are for texts of the form, some dozen at most; 0 if it is none of these.
    virtual int countFor(const PlainText &text) const = 0;
    /// The value in one of the ways, as the database keeps it; invalid if there is no such value.
    virtual QVariant valueOf(const PlainText &text, int way) = 0;
    /// Takes notice of what the reader has made of a text.
    virtual void note(const PlainText & /*text*/, const QVariant & /*stored*/) {}
};
