#pragma once

#include "KTArrayColumn.h"

#include <KTUtility/Platform/Keys/NSKeyValueObservation.h>

#include <QHash>
#include <QList>
#include <QObject>
#include <QVarLengthArray>

#include <functional>
#include <memory>
#include <vector>

namespace KTPrivate {
/// Observes the objects of the rows that were asked for last, and knows in which rows they are.
///
/// An observation costs some 5 µs and 2 kB for each key, so that those of all cells of 100,000 rows
/// would take seconds and more memory than the objects. A table shows some dozen rows: it asks again
/// for whatever it is about to show.
class RowWatches : public QObject
{
    Q_OBJECT

public:
    /// What is called when a value may have changed.
    /// \param column −1 for all that are columns by member.
    using Told = std::function<void(int row, int column)>;

    /// What is called when the object of a row is destroyed.
    using Gone = std::function<void(int row)>;

    RowWatches(Told told, Gone gone) : _told(std::move(told)), _gone(std::move(gone)) {}

    /// Begins anew with other columns.
    void setColumns(const QList<KTArrayColumn> &columns);
    /// How many objects are observed at most; −1 for all that are asked for.
    void setLimit(int limit) { _limit = limit; }
    int limit() const { return _limit; }
    /// How many there are.
    int count() const { return int(_watches.size()); }
    /// How many observations may begin until this is set again; −1 for any number. A pass over all
    /// rows then costs little more than reading them.
    void setBudget(int budget) { _budget = budget; }
    /// Whether since this was asked last objects have been let go, or were not observed since the
    /// budget was spent.
    bool hasMissed() { return std::exchange(_hasMissed, false); }

    /// Somebody has asked for a row.
    /// \return whether its object is observed since now.
    bool asked(int row, QObject *object);

    // --- The rows have changed

    void rowsInserted(int first, int count);
    void rowsRemoved(int first, int count);
    void rowsMoved(int first, int count, int before);
    /// \param newRows where each row is now; −1 if it is gone.
    void rowsArranged(const std::vector<int> &newRows);

private Q_SLOTS:
    void objectChanged();
    void objectIsGone(QObject *object);

private:
    struct Watch
    {
        QVarLengthArray<int, 1> rows;
        std::vector<NSKeyValueObservation> observations;
        quint64 askedAt = 0;
    };

    void begin(QObject *object, Watch *watch);
    void letGoOfOldest();
    void tell(const QObject *object, int column);
    template<typename Placement>
    void place(const Placement &newRowOf);

    Told _told;
    Gone _gone;
    QList<KTArrayColumn> _columns;
    QHash<const QObject *, std::shared_ptr<Watch>> _watches;
    quint64 _asked = 0;
    int _limit = 1000;
    int _budget = -1;
    bool _hasMissed = false;
};
} // namespace KTPrivate
