#pragma once

#include "Text/Outcome.h"

#include <KTUtility/KTDatabaseBundle>

#include <QTemporaryDir>

#include <memory>

/// A copy of a bundle's database in a temporary folder, which goes with it.
///
/// When a change of a database was interrupted, its journal must be played back before anything can
/// be read. That changes the database, and who only looks at a bundle must not change it; so it
/// happens in a copy.
///
/// \code
/// const auto copy = DatabaseCopy::make(bundle);
/// if (copy)
///     open((*copy)->path());
/// \endcode
class DatabaseCopy
{
public:
    /// Fails if there is no room for it, if the journal is none that may be played back, and if
    /// another process plays it back in the same moment.
    static Outcome<std::unique_ptr<DatabaseCopy>> make(const KTDatabaseBundle &bundle);

    /// The path of the database; its journal is beside it.
    QString path() const;

private:
    Outcome<> fill(const QString &database) const;

    QTemporaryDir _folder;
};
