#include "KTWindowController.h"

#include "KTDialogController.h"
#include "KTWindowManager.h"
#include <KTUtility/Platform/AppKit/NSApplication.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

#include <QEvent>

#include <algorithm>
#include <utility>

using namespace KTPrivate;

namespace {
/// The controller that a notification's window notifies.
KTWindowController *delegateIn(const NSNotification &notification)
{
    return qobject_cast<KTWindowController *>(NSWindowController::delegateOf(notification.window));
}
} // namespace

KTWindowController::KTWindowController(QWidget *window) : NSWindowController(window) {}
KTWindowController::KTWindowController(const QString &interfaceFile)
    : NSWindowController(interfaceFile)
{
}

KTWindowController::~KTWindowController()
{
    KTWindowManager::sharedWindowManager()->windowControllerBecameVisible(this, false);
    // While this is still a host: the sheets over the window go with it, and tell this of their end.
    setWindow(nullptr);
}

void KTWindowController::addDialogControllerToQueue(KTDialogController *dialog)
{
    if (!_refusesDuplicateDialogs || !isQueuedOrRunning(dialog))
        _dialogQueue.append(dialog);
}

bool KTWindowController::isQueuedOrRunning(const KTDialogController *dialog) const
{
    const bool isRunning = dialog->isRunningAsDialog() && dialog->hostWindowController() == this;
    return isRunning || std::any_of(_dialogQueue.begin(), _dialogQueue.end(),
                                    [dialog](const auto &each) { return each == dialog; });
}

QList<KTDialogController *> KTWindowController::dialogQueue() const
{
    QList<KTDialogController *> dialogs;
    for (const QPointer<KTDialogController> &dialog : _dialogQueue) {
        if (dialog)
            dialogs += dialog;
    }
    return dialogs;
}

void KTWindowController::runDialogQueue()
{
    _continueRunningQueue = true;
    _isClosed = false;
    _isPutOff = false;
    runNextDialogInQueue();
}

void KTWindowController::runNextDialogInQueue()
{
    _dialogQueue.removeAll(nullptr);
    if (_dialogQueue.isEmpty()) {
        _continueRunningQueue = false;
        return;
    }
    const QPointer<KTDialogController> dialog = _dialogQueue.takeFirst();
    dialog->_configDialog(this);
    // Configuring may have ended or even destroyed it.
    if (dialog && dialog->hostWindowController() == this)
        dialog->runDialog();
}

void KTWindowController::dialogClosed(KTDialogController * /*dialog*/)
{
    // No dialog appears over a window that the user has closed, until he opens it again.
    if (_isClosed)
        _isPutOff = true;
    else if (_continueRunningQueue)
        runNextDialogInQueue();
}

bool KTWindowController::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show && isWindowLoaded() && object == window())
        windowWasOpened();
    return NSWindowController::eventFilter(object, event);
}

/// Goes on with the dialogs that were put off, when the window is there.
void KTWindowController::windowWasOpened()
{
    _isClosed = false;
    if (std::exchange(_isPutOff, false))
        NSApplication::performOnNextTurn(this, [this] { dialogClosed(nullptr); });
}

void KTWindowController::exposeObjectToDialog(const QVariant &object, const QString &forKey)
{
    if (NSObject::isNil(object))
        _exposedDialogDatasource.remove(forKey);
    else
        _exposedDialogDatasource.insert(forKey, object);
}

QString KTWindowController::description() const
{
    QVariantList dialogs;
    for (KTDialogController *const dialog : dialogQueue())
        dialogs += QVariant::fromValue<QObject *>(dialog);
    return NSString::stringWithFormat(u"%@\nDialogQueue:%@\n",
                                      KeyValueTarget::of(this).description(), QVariant(dialogs));
}

void KTWindowController::windowDidBecomeKey(const NSNotification &notification)
{
    KTWindowManager::sharedWindowManager()->windowControllerBecameMain(delegateIn(notification));
}

void KTWindowController::windowWillClose(const NSNotification &notification)
{
    KTWindowManager::sharedWindowManager()->windowControllerBecameVisible(delegateIn(notification),
                                                                          false);
    _isClosed = true;
}

void KTWindowController::windowDidLoad()
{
    KTWindowManager::sharedWindowManager()->windowControllerBecameMain(this);
}
