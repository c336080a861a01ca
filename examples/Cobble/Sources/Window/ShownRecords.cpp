#include "ShownRecords.h"

#include "DetailPane.h"
#include "FieldDelegate.h"
#include "MainWindow.h"
#include "MainWindowController.h"
#include "RecordTableModel.h"
#include "RecordTableView.h"

#include <QScrollBar>

namespace {
/// Larger selections go.
constexpr qsizetype MostSelected = 100'000;
} // namespace

ShownRecords::ShownRecords(MainWindowController *window) : _window(window)
{
    if (!window->library())
        return;
    _library = window->library();
    _tableName = window->library()->definition().tableName;
    takeSelection();
}

void ShownRecords::takeSelection()
{
    const RecordTableView *const table = _window->mainWindow()->table();
    const QModelIndex current = table->currentIndex();
    _scrolled = {table->horizontalScrollBar()->value(), table->verticalScrollBar()->value()};
    if (_window->records()->selectedCount() <= MostSelected)
        _selected = _window->records()->selectedIds();
    if (!current.isValid() || current.row() >= _window->records()->count())
        return;
    _current = (*_window->records()->ids())[size_t(current.row())];
    _currentColumn = _window->model()->columns().at(current.column()).keyPath();
    _typed = _window->mainWindow()->cells()->typed();
    _title = _window->model()->headerData(current.column(), Qt::Horizontal).toString();
}

bool ShownRecords::isOpenedAnew() const
{
    const std::shared_ptr<OpenLibrary> &now = _window->library();
    return now && now != _library.lock() && now->definition().tableName == _tableName;
}

void ShownRecords::restore() const
{
    if (isOpenedAnew())
        restoreSelection();
}

/// That of the same field; the first one if it is gone.
int ShownRecords::columnOfCurrent() const
{
    const Library &library = _window->library()->definition();
    const qsizetype field = _window->library()->fieldWithKey(_currentColumn);
    return field < library.fields.size() ? int(field) : 0;
}

void ShownRecords::restoreSelection() const
{
    RecordTableView *const table = _window->mainWindow()->table();
    if (!_selected.empty())
        _window->records()->selectIds(_selected);
    const qsizetype row = _window->records()->rowOf(_current);
    const QModelIndex cell =
        row >= 0 ? _window->model()->index(int(row), columnOfCurrent()) : QModelIndex();
    if (cell.isValid())
        table->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    table->doItemsLayout();
    table->horizontalScrollBar()->setValue(_scrolled.x());
    table->verticalScrollBar()->setValue(_scrolled.y());
    if (_typed)
        restoreTyped(cell);
}

/// In the same field of the same record, or else the user is told that it is lost.
void ShownRecords::restoreTyped(const QModelIndex &cell) const
{
    const qsizetype column = _window->library()->fieldWithKey(_currentColumn);
    if (cell.isValid() && cell.column() == column) {
        _window->mainWindow()->table()->edit(cell);
        _window->mainWindow()->cells()->typeAnew(*_typed);
    } else {
        Q_EMIT _window->mainWindow()->detail()->inputLost(_title, *_typed);
    }
}
