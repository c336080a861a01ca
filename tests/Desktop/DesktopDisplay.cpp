#include "DesktopDisplay.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
/// How long a program may take to start, in milliseconds.
constexpr int Patience = 30000;
} // namespace

DesktopDisplay::~DesktopDisplay()
{
    stop(_windowManager);
    stop(_server);
}

void DesktopDisplay::stop(QProcess &process)
{
    process.terminate();
    if (!process.waitForFinished(5000))
        process.kill();
    process.waitForFinished(5000);
}

bool DesktopDisplay::start()
{
    // The server finds a free number by itself and prints it when it is ready.
    _server.start(QStringLiteral(DESKTOP_SERVER), {u"-displayfd"_s, u"1"_s, u"-screen"_s, u"0"_s,
                                                   u"1280x900x24"_s, u"-nolisten"_s, u"tcp"_s});
    if (!_server.waitForReadyRead(Patience))
        return false;
    qputenv("DISPLAY", QByteArray(":" + _server.readLine().trimmed()));
    _windowManager.start(QStringLiteral(DESKTOP_WINDOW_MANAGER), {u"--sm-disable"_s});
    return _windowManager.waitForStarted(Patience);
}

bool desktop_support::becomesActive(const QWidget *window)
{
    return QTest::qWaitFor([window] {
        return QApplication::activeWindow() == window &&
               QGuiApplication::focusWindow() == window->windowHandle();
    });
}
