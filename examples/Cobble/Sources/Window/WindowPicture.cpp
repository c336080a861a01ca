#include "WindowPicture.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {
constexpr int ShadowWidth = 12;

bool isSheetOf(const QWidget *sheet, const QWidget *window)
{
    return sheet->isVisible() && sheet->isWindow() && sheet->windowType() != Qt::Popup &&
           sheet->windowHandle() && window->windowHandle() &&
           sheet->windowHandle()->transientParent() == window->windowHandle();
}

void drawShadow(QPainter &painter, const QRect &around)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 12));
    for (int distance = ShadowWidth; distance > 0; --distance)
        painter.drawRoundedRect(around.adjusted(-distance, -distance, distance, distance), distance,
                                distance);
}

void drawSheet(QPainter &painter, const QRect &window, QWidget *sheet)
{
    const QPixmap picture = sheet->grab();
    painter.fillRect(window, QColor(0, 0, 0, 70));
    QRect place(QPoint(), sheet->size());
    place.moveCenter(window.center());
    drawShadow(painter, place);
    painter.drawPixmap(place.topLeft(), picture);
}

bool isPopup(const QWidget *each)
{
    return each->isVisible() && each->windowType() == Qt::Popup;
}

void drawPopup(QPainter &painter, const QWidget *window, QWidget *popup)
{
    const QPoint place = window->mapFromGlobal(popup->mapToGlobal(QPoint()));
    drawShadow(painter, QRect(place, popup->size()));
    painter.drawPixmap(place, popup->grab());
}
} // namespace

bool WindowPicture::hasSheet(const QWidget *window)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(),
                       [window](const QWidget *each) { return isSheetOf(each, window); });
}

QImage WindowPicture::of(QWidget *window)
{
    QPixmap picture = window->grab();
    QPainter painter(&picture);
    for (QWidget *const sheet : QApplication::topLevelWidgets()) {
        if (isSheetOf(sheet, window))
            drawSheet(painter, window->rect(), sheet);
        else if (isPopup(sheet))
            drawPopup(painter, window, sheet);
    }
    painter.end();
    return picture.toImage();
}
