#include "RecordSelection.h"

#include "Open/RecordList.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"

#include <QScopedValueRollback>

RecordSelection::RecordSelection(RecordList *records, RecordTableModel *model,
                                 RecordTableView *table)
    : _records(records), _model(model), _table(table)
{
    QObject::connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                     &RecordSelection::takeFromTable);
    QObject::connect(model, &RecordTableModel::willRearrange, this, &RecordSelection::clearTable);
    QObject::connect(model, &RecordTableModel::rearranged, this, &RecordSelection::showInTable);
    QObject::connect(records, &RecordList::selectionChanged, this, &RecordSelection::showInTable);
    showInTable();
}

RowRuns RecordSelection::rowsInTable() const
{
    QList<RowRun> runs;
    for (const QItemSelectionRange &range : _table->selectionModel()->selection())
        runs += {range.top(), range.bottom()};
    return RowRuns(runs);
}

void RecordSelection::takeFromTable()
{
    if (_isPassing || _model->isRearranging())
        return;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    _records->setSelection(rowsInTable());
}

/// A view takes long to follow selected rows to their new places.
void RecordSelection::clearTable()
{
    const QScopedValueRollback<bool> passing(_isPassing, true);
    _table->selectionModel()->clearSelection();
}

QItemSelection RecordSelection::inTable() const
{
    QItemSelection selection;
    const int lastColumn = _model->columnCount() - 1;
    for (const RowRun &run : _records->selection().runs()) {
        if (lastColumn >= 0 && run.last < _model->rowCount())
            selection += QItemSelectionRange(_model->index(int(run.first), 0),
                                             _model->index(int(run.last), lastColumn));
    }
    return selection;
}

/// A current cell that is selected stays the current one.
void RecordSelection::showInTable()
{
    if (_isPassing || _model->isRearranging())
        return;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    QItemSelectionModel *const shown = _table->selectionModel();
    if (rowsInTable() != _records->selection())
        shown->select(inTable(), QItemSelectionModel::ClearAndSelect);
    const qsizetype first = _records->selectionIndex();
    const QModelIndex current = shown->currentIndex();
    if (first >= 0 && !(current.isValid() && _records->selection().contains(current.row())))
        shown->setCurrentIndex(_model->index(int(first), qMax(current.column(), 0)),
                               QItemSelectionModel::NoUpdate);
}

void RecordSelection::reveal() const
{
    const qsizetype first = _records->selectionIndex();
    if (first < 0)
        return;
    const int current = _table->currentIndex().row();
    _table->reveal(_records->selection().contains(current) ? current : int(first));
}
