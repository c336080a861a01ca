#include "RecordTableView.h"

#include <KTUtility/KTImageBadger>
#include <KTUtility/NSImage_KTAdditions>

#include <QDrag>
#include <QMimeData>

namespace {
constexpr int WidestPicture = 260;
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
