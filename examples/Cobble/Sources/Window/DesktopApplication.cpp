#include "DesktopApplication.h"

#include "MainWindowController.h"
#include "OpenLibrary.h"
#include "SilencedAlerts.h"

#include <KTUtility/KTWindowManager>
#include <KTUtility/NSApplication>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSWindow>

#include <QApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString SilencedAlertsKey = u"SilencedAlerts"_s;
} // namespace

DesktopApplication::DesktopApplication(const KTDatabaseBundle &bundle, KTLogger *logger)
    : _bundle(bundle), _logger(logger)
{
    QApplication::setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(&_textFieldKeys);
    KTWindowManager::sharedWindowManager()->registerDialogControllerClassName(SilencedAlertsKey);
}

DesktopApplication::~DesktopApplication()
{
    KTWindowManager::sharedWindowManager()->registerDialogController(nullptr, SilencedAlertsKey);
}

QList<MainWindowController *> DesktopApplication::windows() const
{
    QList<MainWindowController *> windows;
    for (const auto &window : _windows)
        windows += window.get();
    return windows;
}

void DesktopApplication::newWindow(QAction *)
{
    auto *const current = qobject_cast<MainWindowController *>(
        KTWindowManager::sharedWindowManager()->currentMainWindowController());
    const QString library =
        current && current->library() ? current->library()->definition().name : QString();
    _windows.push_back(std::make_unique<MainWindowController>(this));
    MainWindowController *const opened = _windows.back().get();
    QObject::connect(opened, &MainWindowController::closed, this, &DesktopApplication::remove);
    opened->showWindow();
    if (!library.isNull())
        opened->showLibrary(library);
}

/// It may be in the middle of closing.
void DesktopApplication::remove(MainWindowController *controller)
{
    NSApplication::performOnNextTurn(this, [this, controller] {
        std::erase_if(_windows,
                      [controller](const auto &each) { return each.get() == controller; });
        if (_windows.empty())
            Q_EMIT lastWindowClosed();
    });
}

void DesktopApplication::showSilencedAlerts(QAction *)
{
    KTWindowManager *const manager = KTWindowManager::sharedWindowManager();
    KTDialogController *const dialog = manager->dialogControllerForKey(SilencedAlertsKey);
    if (dialog && dialog->isRunningAsDialog())
        dialog->showWindow();
    else
        manager->queueDialogToCurrentMainWindowForKey(SilencedAlertsKey, true);
}

void DesktopApplication::showStatus(const QString &text, QWidget *over, bool isLarge)
{
    _hud.setLargeText(isLarge);
    _hud.showStatusWindowWithString(text, NSWindow::frame(over), NSApplication::modalWindow(),
                                    isLarge ? 2.5 : 1.0);
}

void DesktopApplication::terminate(QAction *)
{
    for (MainWindowController *const window : windows())
        window->close();
}

bool DesktopApplication::validateMenuItem(QAction *item)
{
    const bool terminates = NSMenuItem::action(item) == NSSelector("terminate:");
    auto *const dialog = qobject_cast<KTDialogController *>(
        NSWindowController::delegateOf(QApplication::activeWindow()));
    if (dialog && !dialog->validateMenuItem(item))
        return false;
    return !terminates || !_bundle.isBusy();
}
