#include "WindowPlace.h"

#include <KTUtility/NSUserDefaults>

#include <QMainWindow>
#include <QScreen>
#include <QSplitter>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString PlaceKey = u"mainWindow"_s;
const QString GeometryKey = u"geometry"_s;
const QString SplittersKey = u"splitters"_s;
/// What a desktop draws around a window.
constexpr int TitleBarHeight = 32;
constexpr int BorderWidth = 4;
constexpr int CascadeStep = 28;

QVariantMap splittersIn(const QMainWindow *window)
{
    QVariantMap states;
    for (const QSplitter *const splitter : window->findChildren<QSplitter *>()) {
        if (!splitter->objectName().isEmpty())
            states.insert(splitter->objectName(), splitter->saveState());
    }
    return states;
}

void restoreSplitters(const QMainWindow *window, const QVariantMap &states)
{
    for (QSplitter *const splitter : window->findChildren<QSplitter *>())
        splitter->restoreState(states.value(splitter->objectName()).toByteArray());
}

QRect room(const QRect &screen)
{
    return screen.adjusted(BorderWidth, TitleBarHeight, -BorderWidth, -BorderWidth);
}

bool fillsScreen(const QMainWindow *window)
{
    return window->isMaximized() || window->isFullScreen();
}
} // namespace

QRect WindowPlace::fitted(const QRect &wanted, const QRect &screen)
{
    const QRect room = ::room(screen);
    QRect place(wanted.topLeft(), wanted.size().boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
    return place;
}

QRect WindowPlace::beside(const QRect &other, const QRect &screen)
{
    const QRect moved = fitted(other, screen).translated(CascadeStep, CascadeStep);
    if (screen.contains(moved))
        return moved;
    return QRect(room(screen).topLeft(), moved.size().boundedTo(room(screen).size()));
}

void WindowPlace::restore(QMainWindow *window, const QMainWindow *other)
{
    const QVariantMap state = NSUserDefaults::standardUserDefaults()->dictionaryForKey(PlaceKey);
    const bool isKnown = window->restoreGeometry(state.value(GeometryKey).toByteArray());
    restoreSplitters(window, state.value(SplittersKey).toMap());
    const QRect screen = window->screen()->availableGeometry();
    if (other)
        window->setWindowState(Qt::WindowNoState);
    if (other)
        window->setGeometry(beside(other->normalGeometry(), screen));
    else if (!isKnown)
        window->resize(window->size().boundedTo(room(screen).size()));
    else if (!fillsScreen(window))
        window->setGeometry(fitted(window->geometry(), screen));
}

void WindowPlace::save(const QMainWindow *window)
{
    NSUserDefaults::standardUserDefaults()->setObject(
        QVariantMap{{GeometryKey, window->saveGeometry()}, {SplittersKey, splittersIn(window)}},
        PlaceKey);
}
