#include "NSWindow.h"

#include "NSScreen.h"

#include <QWidget>

QRectF NSWindow::frame(const QWidget *window)
{
    return NSScreen::systemRect(window->geometry());
}

void NSWindow::setFrame(QWidget *window, const QRectF &frame)
{
    window->setGeometry(NSScreen::qtRect(frame));
}

void NSWindow::orderFront(QWidget *window)
{
    window->setAttribute(Qt::WA_ShowWithoutActivating);
    window->show();
    window->raise();
}

void NSWindow::orderOut(QWidget *window)
{
    window->hide();
}

void NSWindow::setLevel(QWidget *window, int level)
{
    const bool isOnTop = level > NSNormalWindowLevel;
    // A change makes Qt create the window anew.
    if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint) != isOnTop)
        window->setWindowFlag(Qt::WindowStaysOnTopHint, isOnTop);
}
