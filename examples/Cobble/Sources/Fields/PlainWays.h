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
    static constexpr size_t KindCount = 4;

    /// Those of a reader's type; null where texts are not read by their digits.
    static std::unique_ptr<PlainWays> of(const FieldReader &reader);

    virtual ~PlainWays() = default;

    /// How many ways there are for texts of the form, some dozen at most; 0 if it is none of these.
    virtual int countFor(const PlainText &text) const = 0;
    /// Texts of a form that readers may tell apart by their digits have different kinds, below
    /// KindCount: those that are values in other ways.
    virtual size_t kindOf(const PlainText & /*text*/) const { return 0; }
    /// Whether a text of that form and kind may be a value in one of the ways at all.
    virtual bool isPossible(const PlainText & /*text*/, int /*way*/) const { return true; }
    /// The value in one of the ways, as the database keeps it; invalid if there is no such value,
    /// or if it is not known.
    virtual QVariant valueOf(const PlainText &text, int way) = 0;
    /// Takes notice of what the reader has made of a text.
    virtual void note(const PlainText & /*text*/, const QVariant & /*stored*/) {}
};
