#pragma once

#include "CatalogueChange.h"
#include "Library/LibraryTable.h"
#include "RecordChanges.h"
#include "SpentNumbers.h"
#include "StepEffect.h"
#include "Text/Outcome.h"

#include <QSqlDatabase>

/// Takes a step of the journal back, or does it again. Nothing that the journal says is believed: it
/// changes records of libraries that there are, and only if what is there is what the step has left.
///
/// \code
/// StepPlayer player(database, 12, StepPlayer::Direction::Undo);
/// if (player.play())
///     show(player.effect());
/// \endcode
class StepPlayer
{
public:
    enum class Direction { Undo, Redo };

    StepPlayer(const QSqlDatabase &database, qint64 step, Direction direction)
        : _database(database), _step(step), _direction(direction), _numbers(database)
    {
    }

    /// Within a transaction, which has to be taken back if this fails.
    Outcome<> play();
    const StepEffect &effect() const { return _effect; }

private:
    Outcome<> playPart(qint64 place);
    Outcome<> playRecords(qint64 place, const QString &tableName, const QByteArray &content);
    Outcome<> keepChanges(qint64 place, QList<RecordChange> changes);
    Outcome<LibraryTable> openTable(const QString &tableName);
    Outcome<> findReplacedColumns(const QString &tableName);
    Outcome<bool> hasReplaced(qint64 step, const QString &column);
    bool hasOtherType(const RecordChange &change) const;
    Failure typeConflict() const;
    Outcome<> checkRecord(LibraryTable &table, const RecordChange &change);
    Outcome<> playRecord(LibraryTable &table, RecordChange *recorded);
    Outcome<> keepOthers(LibraryTable &table, RecordChange *change);
    Outcome<> playCatalogue(const QByteArray &content);
    Outcome<> checkThere(const std::optional<Library> &from, const std::optional<Library> &to);
    Outcome<> checkNothingLater(const QString &tableName);
    Outcome<> checkColumns(const Library &library);
    Outcome<> checkNameIsFree(const QString &name);
    Outcome<> addEntries(const Library &library);
    Outcome<> moveTable(const std::optional<Library> &from, const std::optional<Library> &to);
    Outcome<> moveColumns(const Library &from, const Library &to);
    Outcome<> putAway(const QString &table, const QString &column = {});
    Failure conflict() const;
    Failure conflictUnless(const Failure &failure) const;
    bool isUndo() const { return _direction == Direction::Undo; }

    QSqlDatabase _database;
    qint64 _step;
    Direction _direction;
    SpentNumbers _numbers;
    /// The table whose records are played.
    QString _lookedAt;
    QStringList _replacedColumns;
    QStringList _fieldColumns;
    /// Whether the step has to say more than it did.
    bool _isAmended = false;
    StepEffect _effect;
};
