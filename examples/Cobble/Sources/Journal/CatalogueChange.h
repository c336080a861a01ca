#pragma once

#include "Library/Library.h"
#include "Text/Outcome.h"

#include <QByteArray>

#include <optional>

/// What a step of the journal has done to a library's entries in the catalogue. A library that was
/// not there before has none before.
struct CatalogueChange
{
    std::optional<Library> before;
    std::optional<Library> after;

    /// The change as JSON.
    QByteArray bytes() const;
    /// Reads what bytes() has written. Bytes of anybody else are an error.
    static Outcome<CatalogueChange> read(const QByteArray &bytes);
    /// Whether both are the same in all that the catalogue says.
    static bool areEqual(const Library &one, const Library &other);
};
