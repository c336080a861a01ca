#include "ViewAttachment_p.h"

#include "KTArraySelection.h"
#include "KTFormatterDelegate.h"

#include <QHeaderView>
#include <QTableView>
#include <QTreeView>

using namespace KTPrivate;

namespace {
QHeaderView *headerOf(QAbstractItemView *view)
{
    if (const auto *const table = qobject_cast<QTableView *>(view))
        return table->horizontalHeader();
    const auto *const tree = qobject_cast<QTreeView *>(view);
    return tree ? tree->header() : nullptr;
}

void letSort(QAbstractItemView *view)
{
    if (auto *const table = qobject_cast<QTableView *>(view))
        table->setSortingEnabled(true);
    if (auto *const tree = qobject_cast<QTreeView *>(view))
        tree->setSortingEnabled(true);
}

/// All rows are as high as each other, so that a view need not ask for all of them.
void makeFlat(QAbstractItemView *view)
{
    if (auto *const tree = qobject_cast<QTreeView *>(view)) {
        tree->setRootIsDecorated(false);
        tree->setUniformRowHeights(true);
    }
}
} // namespace

ViewAttachment::ViewAttachment(KTArrayModel *model, QAbstractItemView *view)
    : QObject(view), _model(model), _view(view), _header(headerOf(view))
{
    for (ViewAttachment *const each : view->findChildren<ViewAttachment *>()) {
        if (each != this)
            delete each;
    }
    view->setModel(model);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    makeFlat(view);
    if (!qobject_cast<KTFormatterDelegate *>(view->itemDelegate()))
        view->setItemDelegate(new KTFormatterDelegate(this));
    if (model->controller())
        new KTArraySelection(model, view->selectionModel(), this);
    if (_header)
        prepareHeader();
}

void ViewAttachment::prepareHeader()
{
    // Sorting is enabled with the order that the mark shows.
    showSortIndicator();
    letSort(_view);
    if (_model->controller())
        QObject::connect(_model->controller(), &NSArrayController::sortDescriptorsChanged, this,
                         &ViewAttachment::showSortIndicator);
}

/// The view asks the model to sort by it then, which is so already.
void ViewAttachment::showSortIndicator()
{
    if (!_model || !_header)
        return;
    const int column = _model->sortColumn();
    const bool isDescending =
        column >= 0 && !_model->controller()->sortDescriptors().constFirst().ascending;
    _header->setSortIndicator(column, isDescending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

std::pair<int, int> ViewAttachment::visibleRows(const QAbstractItemView *view)
{
    const QRect area = view->viewport()->rect();
    const int first = view->indexAt(area.topLeft()).row();
    const QModelIndex last = view->indexAt(area.bottomLeft());
    const int count = view->model() ? view->model()->rowCount() : 0;
    return {first, first < 0 ? -2 : last.isValid() ? last.row() : count - 1};
}
