#pragma once

#include "StepPlayer.h"
#include "StepRecorder.h"
#include "StepTitle.h"
#include "Text/Outcome.h"

#include <QDateTime>
#include <QSet>

#include <functional>
#include <optional>

class LibraryStore;

/// What was done to the libraries of a database, step by step, so that it can be undone and redone,
/// also by another process: the database keeps the steps.
///
/// All of a step is written, or nothing. Within a transaction of the store a step is part of it,
/// else it is one of its own.
///
/// A new step makes the journal forget those that were undone. It keeps 500 steps, and no more than
/// 64 MB of them, but always the last one; with a forgotten step go the tables, columns and media
/// files that only it needed. The files are for the caller to delete, who knows when all is
/// committed; see forgottenMedia().
///
/// \code
/// ChangeJournal journal(store);
/// const Outcome<qint64> step =
///     journal.make({StepKinds::Delete, {{StepParameters::Count, 1}}},
///                  [&](StepRecorder &recorder) { return recorder.remove(contacts, 12); });
/// journal.undo(*step);
/// \endcode
class ChangeJournal
{
public:
    struct Step
    {
        /// No other step of the database ever has the same.
        qint64 number = 0;
        StepTitle title;
        QDateTime time;
        bool isDone = true;
    };

    struct Limits
    {
        qsizetype steps = 500;
        /// In bytes, about.
        qint64 size = qint64(64) << 20;
    };

    explicit ChangeJournal(LibraryStore &store);
    ChangeJournal(LibraryStore &store, const Limits &limits);

    /// Makes a step.
    /// \param changes what it does; if that fails, nothing is changed.
    /// \return its number; 0 if it has changed nothing, so that there is nothing to undo.
    Outcome<qint64> make(const StepTitle &title,
                         const std::function<Outcome<>(StepRecorder &)> &changes);
    /// Takes a step back. If what it has changed was changed since, that is why it fails.
    /// \return what has changed by that.
    Outcome<StepEffect> undo(qint64 step);
    /// Does a step again that was undone.
    Outcome<StepEffect> redo(qint64 step);

    /// All steps, the oldest first. In a database from elsewhere they may be unreadable.
    Outcome<QList<Step>> steps();
    /// The step of a number; nothing if there is none.
    Outcome<std::optional<Step>> step(qint64 number);
    /// The last step that is done, which is the one to undo; nothing if there is none.
    Outcome<std::optional<Step>> last();
    /// The step to redo; nothing if there is none.
    Outcome<std::optional<Step>> lastUndone();

    /// The media URLs that forgotten steps have needed. Once the change is committed, their files
    /// can go if nothing else uses them; see UnusedMedia.
    const QSet<QString> &forgottenMedia() const { return _forgottenMedia; }

private:
    Outcome<> record(const StepTitle &title,
                     const std::function<Outcome<>(StepRecorder &)> &changes, qint64 *number);
    Outcome<qint64> addStep(const StepTitle &title);
    Outcome<StepEffect> play(qint64 step, StepPlayer::Direction direction);
    Outcome<> needStep(qint64 step, bool isDone);
    Outcome<> setDone(qint64 step, bool isDone);
    Outcome<> forgetUndone();
    Outcome<> forgetOld();
    Outcome<> forget(const QList<qint64> &steps);
    Outcome<> forgetStep(qint64 step);
    Outcome<QList<Step>> stepsWhere(const QString &condition, const QVariantList &values = {});
    Outcome<std::optional<Step>> firstWhere(const QString &condition,
                                            const QVariantList &values = {});

    LibraryStore &_store;
    Limits _limits;
    QSet<QString> _forgottenMedia;
};
