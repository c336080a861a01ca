#include "RecordTableView.h"

#include <KTUtility/KTImageBadger>
#include <KTUtility/NSImage_KTAdditions>

#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QPainter>

namespace {
constexpr int WidestPicture = 260;
/// By which columns are measured.
constexpr int RowsLookedAt = 200;
constexpr int TextGap = 16;
/// More opaque than this, the picture hides where it is dropped.
constexpr qreal Opacity = 0.85;

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
        const int row = int(qint64(look) * rows / qMin(rows, RowsLookedAt));
        const QModelIndex index = model()->index(row, column);
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
    const QModelIndexList cells = selectionModel()->selectedIndexes();
    if (cells.isEmpty())
        return;
    const qsizetype rows = selectionModel()->selectedRows().size();
    auto *const drag = new QDrag(this);
    drag->setMimeData(model()->mimeData(cells));
    drag->setPixmap(QPixmap::fromImage(dragPicture(rows)));
    drag->exec(Qt::CopyAction);
}
