#pragma once

#include "Library.h"
#include "Text/Outcome.h"

#include <QVariant>

/// Records with some fields of a library, one after the other: all of them, or those that somebody
/// has chosen.
class RecordRows
{
public:
    virtual ~RecordRows() = default;

    /// The library with the fields that the records have.
    virtual const Library &library() const = 0;
    /// Goes to the next record, at first to the first one.
    /// \return false if there is none.
    virtual bool next() = 0;
    /// The value of a field of library().
    virtual QVariant value(qsizetype field) const = 0;
    /// Whether there is nothing wrong with the records so far; when they end, whether these were all.
    virtual Outcome<> outcome() const = 0;
};
