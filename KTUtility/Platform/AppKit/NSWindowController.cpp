#include "NSWindowController.h"

#include "NSNib.h"
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QCloseEvent>
#include <QWindow>

using namespace KTPrivate;

namespace {
constexpr const char *WindowDelegate = "_NSWindowDelegate";
}

NSWindowController::NSWindowController(QWidget *window)
{
    setWindow(window);
}

NSWindowController::NSWindowController(const QString &interfaceFile) : _interfaceFile(interfaceFile)
{
}

NSWindowController::~NSWindowController()
{
    setWindow(nullptr);
}

QWidget *NSWindowController::window()
{
    if (_window)
        return _window;
    loadWindow();
    if (_window)
        windowDidLoad();
    return _window;
}

void NSWindowController::setWindow(QWidget *window)
{
    if (window == _window)
        return;
    if (_window) {
        _window->removeEventFilter(this);
        delete _window.data();
    }
    _window = window;
    if (!window)
        return;
    window->setProperty(WindowDelegate, QVariant::fromValue<QObject *>(this));
    window->installEventFilter(this);
    watchHandle();
}

/// What closes a window on the screen: it is told before the filters of the window are, and learns
/// what they and the window have decided.
void NSWindowController::watchHandle()
{
    if (QWindow *const handle = _window->windowHandle())
        handle->installEventFilter(this);
}

void NSWindowController::loadWindow()
{
    if (!_interfaceFile.isEmpty())
        setWindow(NSNib::instantiate(_interfaceFile, this).release());
}

void NSWindowController::windowDidLoad() {}
void NSWindowController::windowDidBecomeKey(const NSNotification &) {}
void NSWindowController::windowWillClose(const NSNotification &) {}

void NSWindowController::showWindow()
{
    if (QWidget *const shown = window()) {
        shown->show();
        shown->raise();
        shown->activateWindow();
    }
}

void NSWindowController::close()
{
    if (_window)
        _window->close();
}

NSWindowController *NSWindowController::delegateOf(const QWidget *window)
{
    if (!window)
        return nullptr;
    return qobject_cast<NSWindowController *>(window->property(WindowDelegate).value<QObject *>());
}

bool NSWindowController::eventFilter(QObject *object, QEvent *event)
{
    const bool isHandle = _window && object == _window->windowHandle();
    if (object != _window && !isHandle)
        return false;
    // The news may come late, when the window is hidden again.
    if (event->type() == QEvent::WindowActivate && !isHandle && _window->isVisible())
        guarded(u"windowDidBecomeKey()", [this] { windowDidBecomeKey({_window}); });
    if (event->type() == QEvent::Show && !isHandle)
        watchHandle();
    if (event->type() != QEvent::Close || _isClosing)
        return false;
    letDecide(object, event);
    return true;
}

/// The window itself decides first, and those who look at its events.
void NSWindowController::letDecide(QObject *object, QEvent *event)
{
    _isClosing = true;
    const QPointer<NSWindowController> self(this);
    object->event(event);
    if (!self)
        return;
    _isClosing = false;
    if (event->isAccepted() && _window)
        guarded(u"windowWillClose()", [this] { windowWillClose({_window}); });
}
