#include "TableSelection.h"

#include <QItemSelectionModel>
#include <QScopedValueRollback>
#include <QTableView>

TableSelection::TableSelection(QTableView *table, NSArrayController *records)
    : _table(table), _records(records)
{
    QObject::connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
                     &TableSelection::takeFromTable);
    QObject::connect(table->model(), &QAbstractItemModel::modelReset, this,
                     &TableSelection::showInTable);
    QObject::connect(records, &NSArrayController::selectionChanged, this,
                     &TableSelection::showInTable);
}

void TableSelection::takeFromTable()
{
    if (_isPassing)
        return;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    QList<qsizetype> rows;
    for (const QModelIndex &index : _table->selectionModel()->selectedRows())
        rows += index.row();
    _records->setSelectionIndexes(rows);
}

void TableSelection::showInTable()
{
    if (_isPassing)
        return;
    const QScopedValueRollback<bool> passing(_isPassing, true);
    QItemSelection selection;
    const int lastColumn = _table->model()->columnCount() - 1;
    for (const qsizetype row : _records->selectionIndexes())
        selection.select(_table->model()->index(int(row), 0),
                         _table->model()->index(int(row), lastColumn));
    _table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    if (!_records->selectionIndexes().isEmpty())
        _table->selectionModel()->setCurrentIndex(
            _table->model()->index(int(_records->selectionIndex()), 0),
            QItemSelectionModel::NoUpdate);
}
