#include "NSScreen.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace {
const QScreen *primaryScreen()
{
    const bool hasScreens = qobject_cast<QGuiApplication *>(QCoreApplication::instance());
    return hasScreens ? QGuiApplication::primaryScreen() : nullptr;
}

const QScreen *mainScreen()
{
    const QScreen *const primary = primaryScreen();
    const QWindow *const focused = primary ? QGuiApplication::focusWindow() : nullptr;
    return focused ? focused->screen() : primary;
}

/// The two systems differ by the direction, and by the height of the primary screen.
QRectF turnedOver(const QRectF &rect)
{
    const QScreen *const primary = primaryScreen();
    const qreal height = primary ? primary->geometry().height() : 0;
    return {rect.x(), height - rect.y() - rect.height(), rect.width(), rect.height()};
}

int wholePoints(qreal number)
{
    // Window systems count places with 16 bits.
    constexpr qreal Farthest = 30000;
    return std::isfinite(number) ? int(std::lround(std::clamp(number, -Farthest, Farthest))) : 0;
}
} // namespace

QRectF NSScreen::mainScreenFrame()
{
    const QScreen *const screen = mainScreen();
    return screen ? systemRect(screen->geometry()) : QRectF();
}

QRectF NSScreen::systemRect(const QRectF &qtRect)
{
    return turnedOver(qtRect);
}

QRect NSScreen::qtRect(const QRectF &systemRect)
{
    const QRectF rect = turnedOver(systemRect);
    return {wholePoints(rect.x()), wholePoints(rect.y()), wholePoints(rect.width()),
            wholePoints(rect.height())};
}
