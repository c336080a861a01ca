#include "ChangeJournal.h"

#include "JournalRepair.h"
#include "Library/JournalBin.h"
#include "Library/JournalTables.h"
#include "Library/LibraryStore.h"
#include "Library/SQL.h"
#include "Text/Reasons.h"

#include <QJsonDocument>
#include <QJsonObject>

using namespace Qt::StringLiterals;

namespace {
QString textOf(const QVariantMap &parameters)
{
    return QString::fromUtf8(
        QJsonDocument(QJsonObject::fromVariantMap(parameters)).toJson(QJsonDocument::Compact));
}

ChangeJournal::Step stepIn(const QSqlQuery &row)
{
    ChangeJournal::Step step;
    step.number = row.value(0).toLongLong();
    step.title.kind = row.value(1).toString();
    step.title.parameters =
        QJsonDocument::fromJson(row.value(2).toString().toUtf8()).object().toVariantMap();
    step.time = QDateTime::fromString(row.value(3).toString(), Qt::ISODateWithMs);
    step.isDone = row.value(4).toLongLong() != 0;
    return step;
}

qint64 numberIn(const QSqlQuery &row)
{
    return row.value(0).toLongLong();
}

Outcome<> removeStep(const QSqlDatabase &database, qint64 step)
{
    Outcome<> done = SQL::run(database, u"DELETE FROM cobble_step WHERE number = ?"_s, {step});
    for (const QStringView table : {u"cobble_step_change", u"cobble_step_media"})
        done = done.andThen([&] {
            return SQL::run(database, u"DELETE FROM %1 WHERE step = ?"_s.arg(table), {step});
        });
    return done;
}
} // namespace

ChangeJournal::ChangeJournal(LibraryStore &store) : ChangeJournal(store, Limits()) {}

ChangeJournal::ChangeJournal(LibraryStore &store, const Limits &limits)
    : _store(store), _limits(limits)
{
}

// --- Making steps

Outcome<qint64> ChangeJournal::make(const StepTitle &title,
                                    const std::function<Outcome<>(StepRecorder &)> &changes)
{
    qint64 number = 0;
    const Outcome<> made = _store.transaction([&] { return record(title, changes, &number); });
    return made ? Outcome<qint64>(number) : made.failure();
}

Outcome<> ChangeJournal::record(const StepTitle &title,
                                const std::function<Outcome<>(StepRecorder &)> &changes,
                                qint64 *number)
{
    const Outcome<> ready = JournalRepair::need(_store.database());
    const Outcome<qint64> added = ready ? addStep(title) : ready.failure();
    if (!added)
        return added.failure();
    StepRecorder recorder(_store.database(), *added);
    const Outcome<> done = changes(recorder).andThen([&] { return recorder.finish(); });
    if (!done || recorder.isEmpty())
        return done.andThen([&] { return forgetStep(*added); });
    *number = *added;
    const StepTitle last = recorder.title().value_or(title);
    return SQL::run(_store.database(),
                    u"UPDATE cobble_step SET size = ?, kind = ?, parameters = ? WHERE number = ?"_s,
                    {recorder.size(), last.kind, textOf(last.parameters), *added})
        .andThen([this] { return forgetUndone(); })
        .andThen([this] { return forgetOld(); });
}

Outcome<qint64> ChangeJournal::addStep(const StepTitle &title)
{
    QSqlQuery query(_store.database());
    const Outcome<> added =
        SQL::execute(query,
                     u"INSERT INTO cobble_step (kind, parameters, time, is_done, size) VALUES "
                     "(?, ?, ?, 1, 0)"_s,
                     {title.kind, textOf(title.parameters),
                      QDateTime::currentDateTimeUtc().toString(Qt::ISODateWithMs)});
    return added ? Outcome<qint64>(query.lastInsertId().toLongLong()) : added.failure();
}

// --- Undo and redo

Outcome<StepEffect> ChangeJournal::undo(qint64 step)
{
    return play(step, StepPlayer::Direction::Undo);
}

Outcome<StepEffect> ChangeJournal::redo(qint64 step)
{
    return play(step, StepPlayer::Direction::Redo);
}

Outcome<> ChangeJournal::setDone(qint64 step, bool isDone)
{
    return SQL::run(_store.database(), u"UPDATE cobble_step SET is_done = ? WHERE number = ?"_s,
                    {isDone ? 1 : 0, step});
}

Outcome<StepEffect> ChangeJournal::play(qint64 step, StepPlayer::Direction direction)
{
    const bool isUndo = direction == StepPlayer::Direction::Undo;
    StepEffect effect;
    const Outcome<> played = _store.transaction([&] {
        StepPlayer player(_store.database(), step, direction);
        const Outcome<> done = needStep(step, isUndo).andThen([&] { return player.play(); });
        effect = player.effect();
        return done.andThen([&] { return setDone(step, !isUndo); });
    });
    return played ? Outcome<StepEffect>(effect) : played.failure();
}

/// Fails if a step is not there, or not in the state in which it can be played.
Outcome<> ChangeJournal::needStep(qint64 step, bool isDone)
{
    const Outcome<std::optional<Step>> found = this->step(step);
    if (!found)
        return found.failure();
    if (*found && (*found)->isDone == isDone)
        return {};
    return Failure{.reason = *found && isDone ? Reasons::tr("it was undone already")
                                              : Reasons::tr("the history no longer has it"),
                   .isFinal = true};
}

// --- Looking

Outcome<QList<ChangeJournal::Step>> ChangeJournal::stepsWhere(const QString &condition,
                                                              const QVariantList &values)
{
    const Outcome<bool> isThere = JournalTables::areThere(_store.database());
    if (!isThere)
        return isThere.failure();
    if (!*isThere)
        return QList<Step>();
    return SQL::rows(_store.database(),
                     u"SELECT number, kind, parameters, time, is_done FROM cobble_step " +
                         condition,
                     values, stepIn);
}

Outcome<std::optional<ChangeJournal::Step>> ChangeJournal::firstWhere(const QString &condition,
                                                                      const QVariantList &values)
{
    const Outcome<QList<Step>> steps = stepsWhere(condition + u" LIMIT 1", values);
    if (!steps)
        return steps.failure();
    return steps->isEmpty() ? std::nullopt : std::optional(steps->first());
}

Outcome<QList<ChangeJournal::Step>> ChangeJournal::steps()
{
    return stepsWhere(u"ORDER BY number"_s);
}

Outcome<std::optional<ChangeJournal::Step>> ChangeJournal::step(qint64 number)
{
    return firstWhere(u"WHERE number = ?"_s, {number});
}

Outcome<std::optional<ChangeJournal::Step>> ChangeJournal::last()
{
    return firstWhere(u"WHERE is_done ORDER BY number DESC"_s);
}

Outcome<std::optional<ChangeJournal::Step>> ChangeJournal::lastUndone()
{
    return firstWhere(u"WHERE NOT is_done ORDER BY number"_s);
}

// --- Forgetting

Outcome<> ChangeJournal::forgetUndone()
{
    const auto undone = SQL::rows(
        _store.database(), u"SELECT number FROM cobble_step WHERE NOT is_done"_s, {}, numberIn);
    return undone ? forget(*undone) : undone.failure();
}

Outcome<> ChangeJournal::forgetOld()
{
    const auto old = SQL::rows(
        _store.database(),
        u"SELECT number FROM (SELECT number, row_number() OVER newest AS place, total(size) OVER "
        "newest AS total FROM cobble_step WINDOW newest AS (ORDER BY number DESC)) WHERE place > "
        "? OR (place > 1 AND total > ?)"_s,
        {_limits.steps, _limits.size}, numberIn);
    return old ? forget(*old) : old.failure();
}

Outcome<> ChangeJournal::forget(const QList<qint64> &steps)
{
    Outcome<> forgotten;
    for (const qint64 step : steps)
        forgotten = forgotten.andThen([&] { return forgetStep(step); });
    return forgotten;
}

Outcome<> ChangeJournal::forgetStep(qint64 step)
{
    const QSqlDatabase database = _store.database();
    const auto media =
        SQL::texts(database, u"SELECT url FROM cobble_step_media WHERE step = ?"_s, {step});
    const Outcome<QSet<QString>> dropped = JournalBin::drop(database, step);
    if (!media || !dropped)
        return media ? dropped.failure() : media.failure();
    _forgottenMedia += QSet<QString>(media->begin(), media->end()) + *dropped;
    return removeStep(database, step);
}
