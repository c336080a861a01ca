#include "KTArrayModel.h"

#include "ArrayDifference_p.h"
#include "RowWatches_p.h"
#include "TextReading_p.h"
#include "ViewAttachment_p.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>
#include <KTUtility/Platform/Keys/NSSelectionMarker.h>
#include <KTUtility/Platform/Values/NSObject.h>

#include <QAbstractItemView>
#include <QBrush>
#include <QGuiApplication>
#include <QPalette>
#include <QScopedValueRollback>

#include <numeric>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// With more ranges than that, it is quicker to bring all rows into another order at once: a view
/// takes some time for each range that grows with the number of its rows.
constexpr size_t MostRanges = 32;

/// More rows than that are not asked for by a view that shows them, but by a pass over all.
constexpr int ObservedAtOnce = 200;

void insertElements(QVariantList *list, int before, const QVariantList &elements)
{
    list->insert(before, elements.size(), QVariant());
    std::copy(elements.begin(), elements.end(), list->begin() + before);
}

void moveElements(QVariantList *list, ArrayDifference::Range rows, int before)
{
    const auto at = [&](int row) { return list->begin() + row; };
    if (before < rows.first)
        std::rotate(at(before), at(rows.first), at(rows.last + 1));
    else
        std::rotate(at(rows.first), at(rows.last + 1), at(before));
}

/// What the Qt's views show by themselves, in the application's locale.
bool isShownByViews(const QVariant &value)
{
    return value.typeId() < QMetaType::User && !NSObject::isNil(value);
}
} // namespace

/// A change of the rows that a view is told of.
struct KTArrayModel::Step
{
    enum class Kind { Remove, Move, Insert };

    Kind kind;
    ArrayDifference::Range rows;
    int before = 0;       ///< for a move
    QVariantList objects; ///< that are inserted
};

KTArrayModel::KTArrayModel(NSArrayController *controller, const QList<KTArrayColumn> &columns,
                           QObject *parent)
    : QAbstractTableModel(parent)
    , _controller(controller)
    , _columns(columns)
    , _watches(std::make_unique<RowWatches>(
          [this](int row, int column) { tellChanged(row, column); },
          // Nobody reads it any more, until the controller arranges others.
          [this](int row) { _rows[row] = QVariant(); }))
{
    _watches->setColumns(columns);
    if (!controller)
        return;
    _rows = controller->arrangedObjects();
    QObject::connect(controller, &NSArrayController::arrangedObjectsChanged, this,
                     &KTArrayModel::rearrange);
    QObject::connect(controller, &NSArrayController::arrangedObjectIsGone, this,
                     &KTArrayModel::objectIsGone);
    QObject::connect(controller, &QObject::destroyed, this, &KTArrayModel::rearrange);
}

KTArrayModel::~KTArrayModel() = default;

void KTArrayModel::setColumns(const QList<KTArrayColumn> &columns)
{
    if (!_columns.isEmpty()) {
        beginRemoveColumns({}, 0, columnCount() - 1);
        _columns.clear();
        endRemoveColumns();
    }
    _watches->setColumns(columns);
    _columnsWithoutKey.clear();
    if (columns.isEmpty())
        return;
    beginInsertColumns({}, 0, int(columns.size()) - 1);
    _columns = columns;
    endInsertColumns();
}

int KTArrayModel::rowOf(const QVariant &object) const
{
    const auto found = std::ranges::find_if(
        _rows, [&](const QVariant &each) { return isSameElement(each, object); });
    return found == _rows.end() ? -1 : int(found - _rows.begin());
}

int KTArrayModel::observedRows() const
{
    return _watches->limit();
}

void KTArrayModel::setObservedRows(int count)
{
    _watches->setLimit(count);
    if (count < 0)
        _watches->setBudget(-1);
}

// --- The rows -----------------------------------------------------------------------------------

/// Brings the rows to what the controller arranges. Whoever is told of a change may have it arrange
/// other objects: these come when the first ones are there.
void KTArrayModel::rearrange()
{
    _isOutdated = true;
    if (_isRearranging)
        return;
    _isRearranging = true;
    while (std::exchange(_isOutdated, false))
        arrangeAs(_controller ? _controller->arrangedObjects() : QVariantList());
    _isRearranging = false;
    if (std::exchange(_hasChangedMeanwhile, false) && !_rows.isEmpty() && !_columns.isEmpty())
        Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    Q_EMIT rearranged();
}

/// Its row is removed later; it must not be asked for anything until then.
void KTArrayModel::objectIsGone(qsizetype index)
{
    if (_isRearranging)
        _isOutdated = true;
    else if (_rows.size() == _controller->arrangedObjects().size())
        _rows[index] = QVariant();
}

void KTArrayModel::arrangeAs(const QVariantList &objects)
{
    const ArrayDifference difference(_rows, objects);
    std::vector<ArrayDifference::Move> moves;
    QList<Step> steps;
    if (difference.removed.size() > MostRanges || !difference.findMoves(MostRanges, &moves)) {
        removeMany(difference);
    } else {
        for (auto rows = difference.removed.rbegin(); rows != difference.removed.rend(); ++rows)
            steps += {Step::Kind::Remove, *rows, 0, {}};
        for (const ArrayDifference::Move &move : moves)
            steps += {Step::Kind::Move, move.rows, move.before, {}};
    }
    if (difference.inserted.size() > MostRanges) {
        performSteps(steps, nullptr);
        insertMany(difference, objects);
        return;
    }
    for (const ArrayDifference::Range &rows : difference.inserted)
        steps += {Step::Kind::Insert, rows, 0, objects.mid(rows.first, rows.count())};
    performSteps(steps, &objects);
}

/// \param result what the rows are afterwards, to save a copy of the list where there is one step;
/// null if that is not at hand.
void KTArrayModel::performSteps(const QList<Step> &steps, const QVariantList *result)
{
    for (qsizetype step = 0; step < steps.size(); ++step)
        perform(steps.at(step), step + 1 == steps.size() ? result : nullptr);
}

void KTArrayModel::perform(const Step &step, const QVariantList *result)
{
    const int first = step.rows.first;
    const int last = step.rows.last;
    const auto change = [&](const auto &make) { result ? void(_rows = *result) : make(); };
    switch (step.kind) {
    case Step::Kind::Remove:
        beginRemoveRows({}, first, last);
        change([&] { _rows.remove(first, step.rows.count()); });
        _watches->rowsRemoved(first, step.rows.count());
        endRemoveRows();
        return;
    case Step::Kind::Move:
        beginMoveRows({}, first, last, {}, step.before);
        change([&] { moveElements(&_rows, step.rows, step.before); });
        _watches->rowsMoved(first, step.rows.count(), step.before);
        endMoveRows();
        return;
    case Step::Kind::Insert:
        beginInsertRows({}, first, last);
        change([&] { insertElements(&_rows, first, step.objects); });
        _watches->rowsInserted(first, step.rows.count());
        endInsertRows();
    }
}

/// Removes what is gone and brings what stays into its order: first all that is gone comes to the
/// end, then it goes as one range.
void KTArrayModel::removeMany(const ArrayDifference &difference)
{
    QVariantList arranged;
    arranged.reserve(_rows.size());
    std::vector<int> newRows(size_t(_rows.size()));
    const auto append = [&](int oldRow) {
        newRows[size_t(oldRow)] = int(arranged.size());
        arranged += _rows.at(oldRow);
    };
    for (const int oldRow : difference.oldRows) {
        if (oldRow >= 0)
            append(oldRow);
    }
    const int kept = int(arranged.size());
    for (const ArrayDifference::Range &rows : difference.removed) {
        for (int row = rows.first; row <= rows.last; ++row)
            append(row);
    }
    arrangeRows(arranged, newRows);
    if (kept < rowCount())
        perform({Step::Kind::Remove, {kept, rowCount() - 1}, 0, {}}, nullptr);
}

/// Inserts what is new as one range at the end, from where it comes to its places.
void KTArrayModel::insertMany(const ArrayDifference &difference, const QVariantList &objects)
{
    const int kept = rowCount();
    std::vector<int> newRows;
    newRows.reserve(size_t(objects.size()));
    for (int row = 0; row < int(objects.size()); ++row) {
        if (difference.oldRows[size_t(row)] >= 0)
            newRows.push_back(row);
    }
    QVariantList inserted;
    for (const ArrayDifference::Range &rows : difference.inserted) {
        for (int row = rows.first; row <= rows.last; ++row) {
            newRows.push_back(row);
            inserted += objects.at(row);
        }
    }
    perform({Step::Kind::Insert, {kept, int(objects.size()) - 1}, 0, inserted}, nullptr);
    arrangeRows(objects, newRows);
}

/// Brings all rows into another order at once.
void KTArrayModel::arrangeRows(const QVariantList &objects, const std::vector<int> &newRows)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    QModelIndexList now;
    now.reserve(before.size());
    for (const QModelIndex &each : before)
        now += index(newRows[size_t(each.row())], each.column());
    _rows = objects;
    _watches->rowsArranged(newRows);
    changePersistentIndexList(before, now);
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

/// A value of an observed object may have changed.
void KTArrayModel::tellChanged(int row, int column)
{
    ++_changesTold;
    _hasChangedMeanwhile = _hasChangedMeanwhile || _isRearranging;
    if (_isRearranging || _columns.isEmpty())
        return;
    const int last = column < 0 ? columnCount() - 1 : column;
    Q_EMIT dataChanged(index(row, qMax(column, 0)), index(row, last));
}

/// Has the object of a row observed. Others may be let go for it, or it may be one too many: at the
/// end of the turn, those that attached views show are.
void KTArrayModel::ask(int row) const
{
    _watches->asked(row, objectOfRow(_rows.at(row)));
    if (!_watches->hasMissed() || std::exchange(_willAskAgain, true))
        return;
    auto *const self = const_cast<KTArrayModel *>(this);
    QMetaObject::invokeMethod(
        self, [self] { self->askAgain(); }, Qt::QueuedConnection);
}

/// Observes what attached views show. What was not observed before may have changed since it was
/// read.
void KTArrayModel::askAgain()
{
    _willAskAgain = false;
    _watches->setBudget(-1);
    for (const QPointer<QAbstractItemView> &view : std::as_const(_views)) {
        const auto [first, last] = view ? ViewAttachment::visibleRows(view) : std::pair(0, -1);
        const int end = qMin(last + 1, rowCount());
        _watches->setLimit(qMax(_watches->limit(), _watches->limit() < 0 ? -1 : end - first));
        bool isNew = false;
        for (int row = qMax(first, 0); row < end; ++row)
            isNew = _watches->asked(row, objectOfRow(_rows.at(row))) || isNew;
        if (isNew && !_columns.isEmpty())
            Q_EMIT dataChanged(index(first, 0), index(end - 1, columnCount() - 1));
    }
    _watches->hasMissed();
    _watches->setBudget(_watches->limit() < 0 ? -1 : ObservedAtOnce);
}

// --- The cells ----------------------------------------------------------------------------------

int KTArrayModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(_rows.size());
}

int KTArrayModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(_columns.size());
}

/// Nil if the object lacks the key: no exception may leave a view that paints.
QVariant KTArrayModel::valueAt(const QModelIndex &index) const
{
    try {
        return _columns.at(index.column()).value(_rows.at(index.row()));
    } catch (...) {
        if (!_columnsWithoutKey.contains(index.column()))
            NSLog(u"A column shows nothing: %@", reasonOfException());
        _columnsWithoutKey.insert(index.column());
    }
    return {};
}

QVariant KTArrayModel::shown(const QModelIndex &index) const
{
    const KTArrayColumn &column = _columns.at(index.column());
    if (column.isCheckable())
        return {};
    const QVariant value = valueAt(index);
    const QString placeholder = column.placeholders().placeholderFor(value);
    if (!placeholder.isEmpty())
        return placeholder;
    if (!column.formatter() && isShownByViews(value))
        return value;
    return shownText(column.formatter().get(), value);
}

QVariant KTArrayModel::edited(const QModelIndex &index) const
{
    return editingText(_columns.at(index.column()).formatter().get(), valueAt(index));
}

QVariant KTArrayModel::foreground(const QModelIndex &index) const
{
    const KTArrayColumn &column = _columns.at(index.column());
    const QVariant value = valueAt(index);
    if (!column.placeholders().placeholderFor(value).isEmpty())
        return QGuiApplication::palette().brush(QPalette::PlaceholderText);
    return shownColour(column.formatter().get(), value);
}

QVariant KTArrayModel::checkState(const QModelIndex &index) const
{
    if (!_columns.at(index.column()).isCheckable())
        return {};
    const QVariant value = valueAt(index);
    if (value == NSMultipleValuesMarker())
        return Qt::PartiallyChecked;
    return NSObject::boolValue(value) ? Qt::Checked : Qt::Unchecked;
}

QVariant KTArrayModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || !checkIndex(index))
        return {};
    ask(index.row());
    const KTArrayColumn &column = _columns.at(index.column());
    switch (role) {
    case Qt::DisplayRole:
        return shown(index);
    case Qt::EditRole:
        return edited(index);
    case Qt::CheckStateRole:
        return checkState(index);
    case Qt::ForegroundRole:
        return foreground(index);
    case Qt::TextAlignmentRole:
        return int(column.alignment());
    case ValueRole:
        return valueAt(index);
    case ObjectRole:
        return _rows.at(index.row());
    case FormatterRole:
        return QVariant::fromValue(column.formatter());
    default:
        return {};
    }
}

QVariant KTArrayModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return QAbstractTableModel::headerData(section, orientation, role);
    const KTArrayColumn &column = _columns.at(section);
    if (role == Qt::DisplayRole)
        return column.title();
    return role == Qt::TextAlignmentRole ? QVariant(int(column.alignment())) : QVariant();
}

Qt::ItemFlags KTArrayModel::flags(const QModelIndex &index) const
{
    if (!index.isValid() || !checkIndex(index))
        return {};
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    const KTArrayColumn &column = _columns.at(index.column());
    if (!column.isEditable() || !objectOfRow(_rows.at(index.row())) ||
        !KTBindingOptions::isEditable(valueAt(index)))
        return flags;
    return flags | (column.isCheckable() ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable);
}

// --- Editing ------------------------------------------------------------------------------------

bool KTArrayModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Qt::ItemFlags needed =
        role == Qt::CheckStateRole ? Qt::ItemIsUserCheckable : Qt::ItemIsEditable;
    if (!(flags(index) & needed))
        return false;
    if (role == Qt::CheckStateRole)
        return store(index, value.toInt() == Qt::Checked);
    if (role == Qt::EditRole && value.typeId() == QMetaType::QString)
        return setText(index, value.toString());
    return (role == Qt::EditRole || role == ValueRole) && store(index, value);
}

/// A text that was not changed is not read: it might not have all digits.
bool KTArrayModel::setText(const QModelIndex &index, const QString &text)
{
    if (text == edited(index).toString())
        return true;
    const TextReading reading =
        TextReading::of(_columns.at(index.column()).formatter().get(), text);
    return reading.isRead ? store(index, reading.value) : reject(index, reading.reason);
}

bool KTArrayModel::store(const QModelIndex &index, const QVariant &value)
{
    // Whoever is told of the value may destroy the model, or give it other columns.
    const QPointer<KTArrayModel> self = this;
    const KTArrayColumn column = _columns.at(index.column());
    const QPersistentModelIndex place = index;
    const quint64 before = _changesTold;
    try {
        column.setValue(value, QVariant(_rows.at(index.row())));
    } catch (...) {
        return self && reject(place, rejectionForPeople(value, reasonOfException()));
    }
    // What has no signal, or was never asked for, is not observed.
    if (self && before == _changesTold && place.isValid())
        tellChanged(place.row(), place.column());
    return true;
}

bool KTArrayModel::reject(const QModelIndex &index, const QString &reason)
{
    Q_EMIT rejected(index, reason);
    return false;
}

// --- The order ----------------------------------------------------------------------------------

int KTArrayModel::sortColumn() const
{
    if (!_controller || _controller->sortDescriptors().isEmpty())
        return -1;
    const NSSortDescriptor &first = _controller->sortDescriptors().constFirst();
    const auto found = std::ranges::find_if(_columns, [&](const KTArrayColumn &column) {
        const NSSortDescriptor own = column.sortDescriptor(true);
        return own.key == first.key && own.member == first.member;
    });
    return found == _columns.end() ? -1 : int(found - _columns.begin());
}

void KTArrayModel::sort(int column, Qt::SortOrder order)
{
    if (!_controller)
        return;
    QList<NSSortDescriptor> descriptors;
    if (column >= 0 && column < columnCount())
        descriptors += _columns.at(column).sortDescriptor(order == Qt::AscendingOrder);
    const bool isOwn = sortColumn() >= 0;
    const bool isSame =
        !descriptors.isEmpty() && sortColumn() == column &&
        _controller->sortDescriptors().constFirst().ascending == descriptors.constFirst().ascending;
    if (isSame || (descriptors.isEmpty() && !isOwn))
        return;
    try {
        _controller->setSortDescriptors(descriptors);
    } catch (...) {
        NSLog(u"The rows cannot be sorted: %@", reasonOfException());
    }
}

void KTArrayModel::attach(QAbstractItemView *view)
{
    _views += view;
    _views.removeAll(nullptr);
    _watches->setBudget(_watches->limit() < 0 ? -1 : ObservedAtOnce);
    new ViewAttachment(this, view);
}
