#pragma once

#include "Text/Outcome.h"

#include <QSqlDatabase>
#include <QString>

/// A table that Cobble makes for itself when it needs it. In a database from elsewhere anything may
/// have its name: only what is made exactly as this one is read.
struct OwnTable
{
    enum class State {
        Missing,
        Ours,
        Foreign, ///< somebody else's
    };

    QString name;
    /// The statement that makes it, as SQLite keeps it.
    QString definition;

    Outcome<State> stateIn(const QSqlDatabase &database) const;
    Outcome<> make(const QSqlDatabase &database) const;
    /// Drops it. What somebody else has made is not dropped: a table gets a name of its own, so that
    /// what it has stays. Fails if it is that of a library.
    Outcome<> drop(const QSqlDatabase &database) const;
    /// Drops the indices of somebody else, which could refuse what is added. They keep nobody from
    /// reading.
    Outcome<> dropIndices(const QSqlDatabase &database) const;
    /// Makes the table if it is not there, also in the place of somebody else's.
    Outcome<> need(const QSqlDatabase &database) const;

private:
    Outcome<> putAside(const QSqlDatabase &database) const;
    Outcome<> checkNoLibrary(const QSqlDatabase &database) const;
};
