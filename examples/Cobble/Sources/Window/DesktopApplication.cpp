#include "DesktopApplication.h"

#include "Appearance/HelpWindow.h"
#include "Appearance/Icons.h"
#include "Appearance/WindowPlace.h"
#include "MainWindow.h"
#include "MainWindowController.h"
#include "Open/OpenLibrary.h"
#include "SilencedAlerts.h"

#include <KTUtility/KTWindowManager>
#include <KTUtility/NSApplication>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSUserDefaults>
#include <KTUtility/NSWindow>

#include <QApplication>
#include <QMenuBar>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString SilencedAlertsKey = u"SilencedAlerts"_s;
/// The last library of each bundle.
const QString LibrariesKey = u"libraries"_s;
} // namespace

DesktopApplication::DesktopApplication(const KTDatabaseBundle &bundle, KTLogger *logger)
    : _bundle(bundle), _logger(logger)
{
    QApplication::setQuitOnLastWindowClosed(false);
    qApp->installEventFilter(&_textFieldKeys);
    QApplication::setApplicationDisplayName(u"Cobble"_s);
    QApplication::setDesktopFileName(u"org.cobble.Cobble"_s);
    QApplication::setWindowIcon(Icons::application());
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
    _libraryToShow =
        current && current->library() ? current->library()->definition().name : rememberedLibrary();
    _windows.push_back(std::make_unique<MainWindowController>(this));
    MainWindowController *const opened = _windows.back().get();
    QObject::connect(opened, &MainWindowController::closed, this, &DesktopApplication::remove);
    if (_remembers)
        WindowPlace::restore(opened->mainWindow(), current ? current->mainWindow() : nullptr);
    opened->showWindow();
}

/// The library that the last window of this bundle has shown, else the first one.
QString DesktopApplication::rememberedLibrary() const
{
    const QList<Library> &libraries = _bundle.libraries();
    const QString last = NSUserDefaults::standardUserDefaults()
                             ->dictionaryForKey(LibrariesKey)
                             .value(_bundle.bundle().bundlePath())
                             .toString();
    const bool isThere = std::any_of(libraries.begin(), libraries.end(),
                                     [&last](const Library &each) { return each.name == last; });
    if (_remembers && isThere)
        return last;
    return libraries.isEmpty() ? QString() : libraries.first().name;
}

void DesktopApplication::remember(MainWindowController *controller) const
{
    // There is none while a window is destroyed without having been closed.
    const MainWindow *const window = controller->mainWindow();
    if (!window)
        return;
    WindowPlace::save(window);
    if (!controller->library())
        return;
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    QVariantMap libraries = defaults->dictionaryForKey(LibrariesKey);
    libraries.insert(_bundle.bundle().bundlePath(), controller->library()->definition().name);
    defaults->setObject(libraries, LibrariesKey);
}

/// It may be in the middle of closing.
void DesktopApplication::remove(MainWindowController *controller)
{
    if (_remembers)
        remember(controller);
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

HelpWindow *DesktopApplication::help()
{
    if (!_help)
        _help = std::make_unique<HelpWindow>();
    return _help.get();
}

void DesktopApplication::showHelp(QAction *)
{
    help()->showHelp();
}

void DesktopApplication::showShortcuts(QAction *)
{
    auto *const current = qobject_cast<MainWindowController *>(
        KTWindowManager::sharedWindowManager()->currentMainWindowController());
    if (current)
        help()->showShortcuts(current->mainWindow()->menuBar());
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
