#include "RecordTableView.h"

#include <KTUtility/KTImageBadger>
#include <KTUtility/NSImage_KTAdditions>

#include <QDrag>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMimeData>
#include <QPainter>

namespace {
constexpr int WidestPicture = 260;
/// By which columns are measured: groups of rows that follow each other, since these are read at once.
constexpr int RowsLookedAt = 200;
constexpr int GroupLookedAt = 25;
/// More rows than these cannot be dragged.
constexpr int MostDragged = 100'000;
constexpr int TextGap = 16;
/// More opaque than this, the picture hides where it is dropped.
constexpr qreal Opacity = 0.85;

/// One of the rows by which columns are measured.
int rowLookedAt(int look, int rows)
{
    if (rows <= RowsLookedAt)
        return look;
    const int group = look / GroupLookedAt;
    const int last = rows - GroupLookedAt;
    return int(qint64(group) * last / (RowsLookedAt / GroupLookedAt - 1)) + look % GroupLookedAt;
}

int rowCountOf(const QItemSelection &selection)
{
    int count = 0;
    for (const QItemSelectionRange &range : selection)
        count += range.height();
    return count;
}

QImage faded(const QImage &picture)
{
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    result.setDevicePixelRatio(picture.devicePixelRatio());
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setOpacity(Opacity);
    painter.drawImage(QPointF(), picture);
    return result;
}
} // namespace

RecordTableView::RecordTableView(QWidget *parent) : QTableView(parent)
{
    setDragEnabled(true);
    setDragDropMode(QAbstractItemView::DragOnly);
    // A letter does not replace what a cell holds.
    setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
    // All of them would be bold while a record is selected; to find out takes long where many are.
    horizontalHeader()->setHighlightSections(false);
}

void RecordTableView::setEmptyText(const QString &text)
{
    _emptyText = text;
    viewport()->update();
}

void RecordTableView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (_emptyText.isEmpty() || !model() || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(TextGap, TextGap, -TextGap, -TextGap),
                     int(Qt::AlignCenter) | Qt::TextWordWrap, _emptyText);
}

int RecordTableView::sizeHintForColumn(int column) const
{
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    const int rows = model() ? model()->rowCount() : 0;
    int width = 0;
    for (int look = 0; look < qMin(rows, RowsLookedAt); ++look) {
        const QModelIndex index = model()->index(rowLookedAt(look, rows), column);
        width = qMax(width, itemDelegateForIndex(index)->sizeHint(option, index).width());
    }
    return showGrid() ? width + 1 : width;
}

void RecordTableView::reveal(int row)
{
    // Until then the view has the length that it had.
    executeDelayedItemsLayout();
    updateGeometries();
    scrollTo(model()->index(row, qMax(0, currentIndex().column())));
}

// --- Keys ---------------------------------------------------------------------------------------

void RecordTableView::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier &&
        state() != EditingState)
        editCell(currentIndex());
    else
        QTableView::keyPressEvent(event);
}

void RecordTableView::editCell(const QModelIndex &cell)
{
    if (!cell.isValid())
        return;
    goTo(cell);
    if (cell.flags().testFlag(Qt::ItemIsEditable))
        edit(cell);
}

void RecordTableView::editFirstCell(int row)
{
    const QModelIndex first = model()->index(row, horizontalHeader()->logicalIndex(0));
    if (first.isValid())
        editCell(first.flags().testFlag(Qt::ItemIsEditable) ? first : editableCell(first, 1));
}

void RecordTableView::goOn(const QModelIndex &from, FieldDelegate::Way way)
{
    setFocus(Qt::OtherFocusReason);
    if (way != FieldDelegate::Way::Down)
        editCell(editableCell(from, way == FieldDelegate::Way::Next ? 1 : -1));
    else if (from.row() + 1 < model()->rowCount())
        goTo(from.siblingAtRow(from.row() + 1));
}

/// Whatever keys are held: setCurrentIndex() would take Ctrl of a shortcut for adding to the selection.
void RecordTableView::goTo(const QModelIndex &cell)
{
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect |
                                                QItemSelectionModel::Rows);
    scrollTo(cell);
}

/// The next cell that can be edited, in the order in which the columns stand and from row to row;
/// none if there is none.
QModelIndex RecordTableView::editableCell(const QModelIndex &from, int step) const
{
    const int columns = model()->columnCount();
    int column = horizontalHeader()->visualIndex(from.column());
    int row = from.row();
    for (int tried = 0; tried < columns; ++tried) {
        column += step;
        if (column < 0 || column >= columns) {
            column = column < 0 ? columns - 1 : 0;
            row += step;
        }
        const QModelIndex cell = model()->index(row, horizontalHeader()->logicalIndex(column));
        if (cell.isValid() && cell.flags().testFlag(Qt::ItemIsEditable))
            return cell;
    }
    return {};
}

// --- Dragging -----------------------------------------------------------------------------------

QImage RecordTableView::dragPicture(qsizetype rows) const
{
    const QModelIndexList selected = selectionModel()->selectedRows();
    if (selected.isEmpty())
        return {};
    const QRect row(0, rowViewportPosition(selected.first().row()),
                    qMin(viewport()->width(), WidestPicture), rowHeight(selected.first().row()));
    auto *const shown = const_cast<QWidget *>(static_cast<const QWidget *>(viewport()));
    const QImage picture = faded(shown->grab(row).toImage());
    return KTAdditions::applyBadge(picture, KTImageBadger::badgeWithString(QString::number(rows)),
                                   1, 0, false);
}

void RecordTableView::startDrag(Qt::DropActions)
{
    const int rows = rowCountOf(selectionModel()->selection());
    if (rows == 0 || rows > MostDragged)
        return;
    const QModelIndexList cells = selectionModel()->selectedRows();
    auto *const drag = new QDrag(this);
    drag->setMimeData(model()->mimeData(cells));
    drag->setPixmap(QPixmap::fromImage(dragPicture(rows)));
    drag->exec(Qt::CopyAction);
}
