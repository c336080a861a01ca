#include "DesktopUser.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QWindow>

#include <gtest/gtest.h>

namespace {
/// In milliseconds.
constexpr int LongTime = 30000;

QPoint inWindow(const QWidget *view, const QPoint &place)
{
    return view->mapTo(view->window(), place);
}

QMenu *menuOf(const QMainWindow *window, const QAction *item)
{
    for (const QAction *const title : window->menuBar()->actions()) {
        if (title->menu() && title->menu()->actions().contains(item))
            return title->menu();
    }
    return nullptr;
}
} // namespace

bool desktop_support::comes(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, LongTime);
}

void desktop_support::pressKey(int key, Qt::KeyboardModifiers modifiers)
{
    ASSERT_TRUE(comes([] { return QGuiApplication::focusWindow() != nullptr; }));
    QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key(key), modifiers);
}

void desktop_support::typeText(const QString &text)
{
    ASSERT_TRUE(comes([] { return QGuiApplication::focusWindow() != nullptr; }));
    for (const QChar letter : text)
        QTest::sendKeyEvent(QTest::Click, QGuiApplication::focusWindow(), Qt::Key_unknown,
                            QString(letter), Qt::NoModifier);
}

void desktop_support::typeAnew(const QString &text)
{
    pressKey(Qt::Key_A, Qt::ControlModifier);
    typeText(text);
}

void desktop_support::clickAt(const QWidget *view, const QPoint &place,
                              Qt::KeyboardModifiers modifiers)
{
    ASSERT_TRUE(comes([view] { return view->isVisible() && view->window()->windowHandle(); }));
    QTest::mouseClick(view->window()->windowHandle(), Qt::LeftButton, modifiers,
                      inWindow(view, place));
}

void desktop_support::click(const QWidget *view)
{
    clickAt(view, view->rect().center());
}

void desktop_support::chooseItem(const QMainWindow *window, const QString &name)
{
    const auto *const item = window->findChild<QAction *>(name);
    ASSERT_NE(item, nullptr) << name.toStdString();
    QMenu *const menu = menuOf(window, item);
    ASSERT_NE(menu, nullptr) << name.toStdString();
    const QMenuBar *const bar = window->menuBar();
    clickAt(bar, bar->actionGeometry(menu->menuAction()).center());
    ASSERT_TRUE(comes([menu] { return menu->isVisible(); })) << name.toStdString();
    EXPECT_TRUE(item->isEnabled()) << name.toStdString();
    clickAt(menu, menu->actionGeometry(const_cast<QAction *>(item)).center());
}

bool desktop_support::dropOn(const QWidget *view, const QMimeData &data)
{
    QWindow *const window = view->window()->windowHandle();
    const QPoint place = inWindow(view, view->rect().center());
    const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
    QDragEnterEvent enter(place, offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDragMoveEvent move(place, offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &move);
    if (!enter.isAccepted() || !move.isAccepted())
        return false;
    QDropEvent drop(place, offered, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
    return drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}
