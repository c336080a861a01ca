#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>
#include <memory>
#include <ostream>

/// Everything below a folder, hidden files too: path to content; folders end with "/". Where
/// contents name the folder they have "{home}".
using FileState = QMap<QString, QByteArray>;
FileState stateOf(const QString &folder);

/// Something that writes files, in a home folder of its own. The state before is what its
/// constructor makes.
class FaultScenario
{
public:
    /// What was reported to the caller.
    struct Answer
    {
        bool isDone = false;
        /// Why it is not; for what gives reasons.
        QString reason;
    };

    FaultScenario() = default;
    virtual ~FaultScenario() = default;
    FaultScenario(const FaultScenario &) = delete;
    FaultScenario &operator=(const FaultScenario &) = delete;

    virtual Answer act() = 0;
    /// What the caller sees when the faults are over, where the function itself does not report it.
    virtual Answer seenAfter(const Answer &told) { return told; }
    /// Does what the next reader would do, before the files are looked at.
    virtual void settle() {}
    /// Whether it should succeed after it has failed.
    virtual bool canBeTriedAgain() const { return true; }
    /// Whether what was asked for has happened, and nothing else that matters.
    virtual bool isAsAfter(const FileState &now, const FileState &after) const
    {
        return now == after;
    }
    /// Whether nothing has happened, or nothing that matters.
    virtual bool isAsBefore(const FileState &now, const FileState &before) const
    {
        return now == before;
    }
};

/// A row of the table of scenarios.
struct FaultRow
{
    const char *name;
    std::function<std::unique_ptr<FaultScenario>(const QString &home)> make;
    /// Whether a failure comes with a reason.
    bool givesReasons = false;
    /// Whether a database is written, which gives up where its flushing is interrupted.
    bool usesDatabase = false;
};

inline void PrintTo(const FaultRow &row, std::ostream *stream)
{
    *stream << row.name;
}

template<typename Scenario>
FaultRow faultRow(const char *name)
{
    return {name, [](const QString &home) { return std::make_unique<Scenario>(home); }};
}

QList<FaultRow> platformScenarios();
QList<FaultRow> frameworkScenarios();
QList<FaultRow> hostScenarios();
