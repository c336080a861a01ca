#include "DesktopDisplay.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {
/// How long a program may take to start, in milliseconds.
constexpr int Patience = 30000;

/// As large to a person at each scale.
QString screen()
{
    const double scale = qMax(1.0, qEnvironmentVariable("QT_SCALE_FACTOR").toDouble());
    return u"%1x%2x24"_s.arg(qRound(1280 * scale)).arg(qRound(900 * scale));
}
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
                                                   screen(), u"-nolisten"_s, u"tcp"_s});
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
