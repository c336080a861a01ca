#include "RowWatches_p.h"

#include <KTUtility/Platform/Keys/NotifySignals_p.h>

#include <QPointer>

#include <algorithm>

using namespace KTPrivate;

void RowWatches::setColumns(const QList<KTArrayColumn> &columns)
{
    const auto watches = std::exchange(_watches, {});
    for (auto watch = watches.begin(); watch != watches.end(); ++watch)
        QObject::disconnect(watch.key(), nullptr, this, nullptr);
    _columns = columns;
}

bool RowWatches::asked(int row, QObject *object)
{
    if (!object || _limit == 0)
        return false;
    const bool isNew = !_watches.contains(object);
    if (isNew && _budget == 0) {
        _hasMissed = true;
        return false;
    }
    if (isNew) {
        _budget -= int(_budget > 0);
        const auto made = std::make_shared<Watch>();
        _watches.insert(object, made);
        begin(object, made.get());
    }
    if (const std::shared_ptr<Watch> watch = _watches.value(object)) {
        watch->askedAt = ++_asked;
        if (!watch->rows.contains(row))
            watch->rows.append(row);
        letGoOfOldest();
    }
    return isNew;
}

/// Getters on the way may do anything, as to let go of the object.
void RowWatches::begin(QObject *object, Watch *watch)
{
    QObject::connect(object, &QObject::destroyed, this, &RowWatches::objectIsGone);
    bool hasMembers = false;
    for (int column = 0; column < _columns.size(); ++column) {
        const QString keyPath = _columns.at(column).keyPath();
        hasMembers = hasMembers || keyPath.isNull();
        if (keyPath.isNull())
            continue;
        try {
            watch->observations.emplace_back(
                object, keyPath, NSKeyValueObservingOptions(),
                [this, object, column](const NSKeyValueChange &) { tell(object, column); });
        } catch (...) {
            continue; // It lacks the key: there is nothing to be observed.
        }
    }
    if (hasMembers)
        connectNotifySignals(object, this, "objectChanged()");
}

/// Some at once, so that a pass over all rows costs little for each.
void RowWatches::letGoOfOldest()
{
    if (_limit < 0 || _watches.size() <= _limit + _limit / 2 + 1)
        return;
    std::vector<std::pair<quint64, const QObject *>> ages;
    for (auto watch = _watches.begin(); watch != _watches.end(); ++watch)
        ages.emplace_back((*watch)->askedAt, watch.key());
    const auto end = ages.end() - _limit;
    std::nth_element(ages.begin(), end, ages.end());
    std::for_each(ages.begin(), end, [this](const auto &old) {
        QObject::disconnect(old.second, nullptr, this, nullptr);
        _watches.remove(old.second);
    });
    _hasMissed = true;
}

void RowWatches::objectChanged()
{
    tell(sender(), -1);
}

void RowWatches::objectIsGone(QObject *object)
{
    const std::shared_ptr<Watch> watch = _watches.take(object);
    const auto rows = watch ? watch->rows : QVarLengthArray<int, 1>();
    for (const int row : rows)
        _gone(row);
}

void RowWatches::tell(const QObject *object, int column)
{
    const std::shared_ptr<Watch> watch = _watches.value(object);
    if (!watch)
        return;
    // Whoever is told may destroy this.
    const auto rows = watch->rows;
    const Told told = _told;
    const QPointer<RowWatches> self = this;
    for (const int row : rows) {
        if (self)
            told(row, column);
    }
}

/// Keeps the objects whose rows stay.
template<typename Placement>
void RowWatches::place(const Placement &newRowOf)
{
    for (const std::shared_ptr<Watch> &watch : std::as_const(_watches)) {
        for (int &row : watch->rows)
            row = newRowOf(row);
        watch->rows.removeIf([](int row) { return row < 0; });
    }
    QList<const QObject *> gone;
    for (auto watch = _watches.cbegin(); watch != _watches.cend(); ++watch) {
        if ((*watch)->rows.isEmpty())
            gone += watch.key();
    }
    for (const QObject *const object : gone) {
        QObject::disconnect(object, nullptr, this, nullptr);
        _watches.remove(object);
    }
}

void RowWatches::rowsInserted(int first, int count)
{
    place([=](int row) { return row < first ? row : row + count; });
}

void RowWatches::rowsRemoved(int first, int count)
{
    place([=](int row) {
        if (row < first)
            return row;
        return row < first + count ? -1 : row - count;
    });
}

void RowWatches::rowsMoved(int first, int count, int before)
{
    const int destination = before > first ? before - count : before;
    place([=](int row) {
        if (row >= first && row < first + count)
            return row - first + destination;
        const int without = row < first ? row : row - count;
        return without < destination ? without : without + count;
    });
}

void RowWatches::rowsArranged(const std::vector<int> &newRows)
{
    place([&](int row) { return newRows[size_t(row)]; });
}
