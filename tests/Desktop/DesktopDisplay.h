#pragma once

#include <QProcess>
#include <QString>
#include <QWidget>

/// A display of its own with a small window manager, for tests of what needs a window system.
class DesktopDisplay
{
public:
    DesktopDisplay() = default;
    ~DesktopDisplay();
    DesktopDisplay(const DesktopDisplay &) = delete;
    DesktopDisplay &operator=(const DesktopDisplay &) = delete;

    /// Starts both and points DISPLAY at it.
    /// \return false if one cannot be started.
    bool start();

private:
    static void stop(QProcess &process);

    QProcess _server;
    QProcess _windowManager;
};

namespace desktop_support {
/// Waits until a window has the keyboard. A sheet makes its host look active to Qt as well, so that
/// it is this window and no other that is waited for.
bool becomesActive(const QWidget *window);
} // namespace desktop_support
