#include "KTArraySelection.h"

#include "KTArrayModel.h"

#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Diagnostics/NSLog.h>

#include <QItemSelectionModel>

#include <algorithm>

namespace {
/// Some rows as what a selection consists of: runs of them.
QItemSelection selectionOf(const QList<qsizetype> &rows, const KTArrayModel &model)
{
    QItemSelection selection;
    const int lastColumn = model.columnCount() - 1;
    for (qsizetype from = 0, to = 0; from < rows.size(); from = to) {
        to = from + 1;
        while (to < rows.size() && rows.at(to) == rows.at(to - 1) + 1)
            ++to;
        selection.select(model.index(int(rows.at(from)), 0),
                         model.index(int(rows.at(to - 1)), lastColumn));
    }
    return selection;
}
} // namespace

KTArraySelection::KTArraySelection(KTArrayModel *model, QItemSelectionModel *selection,
                                   QObject *parent)
    : QObject(parent), _model(model), _selection(selection)
{
    QObject::connect(selection, &QItemSelectionModel::selectionChanged, this,
                     &KTArraySelection::takeFromView);
    QObject::connect(model, &KTArrayModel::rearranged, this, &KTArraySelection::showInView);
    if (model->controller())
        QObject::connect(model->controller(), &NSArrayController::selectionChanged, this,
                         &KTArraySelection::showInView);
    showInView();
}

/// The rows of which a cell is selected, ascending.
QList<qsizetype> KTArraySelection::selectedRows() const
{
    QList<qsizetype> rows;
    for (const QItemSelectionRange &range : _selection->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            rows += row;
    }
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    return rows;
}

void KTArraySelection::takeFromView()
{
    if (_isPassing || !_model || _model->isRearranging() || !_model->controller())
        return;
    const QList<qsizetype> rows = selectedRows();
    if (rows == _model->controller()->selectionIndexes())
        return;
    const QPointer<KTArraySelection> self = this;
    _isPassing = true;
    // What getters and observers raise may not leave a signal of Qt.
    try {
        _model->controller()->setSelectionIndexes(rows);
    } catch (...) {
        NSLog(u"While rows were selected: %@", KTPrivate::reasonOfException());
    }
    if (!self)
        return;
    _isPassing = false;
    // Whoever was told may have selected something else.
    showInView();
}

void KTArraySelection::showInView()
{
    if (_isPassing || !_model || _model->isRearranging() || !_model->controller() || !_selection)
        return;
    const QList<qsizetype> rows = _model->controller()->selectionIndexes();
    if (rows == selectedRows() || _model->columnCount() == 0)
        return;
    const QPointer<KTArraySelection> self = this;
    _isPassing = true;
    _selection->select(selectionOf(rows, *_model), QItemSelectionModel::ClearAndSelect);
    if (self && _selection && _model && !rows.isEmpty() &&
        !rows.contains(_selection->currentIndex().row()))
        _selection->setCurrentIndex(_model->index(int(rows.constFirst()), 0),
                                    QItemSelectionModel::NoUpdate);
    if (self)
        _isPassing = false;
}
