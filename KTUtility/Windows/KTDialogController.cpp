#include "KTDialogController.h"

#include <KTUtility/Platform/AppKit/NSApplication.h>
#include <KTUtility/Platform/AppKit/NSMenuItem.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>

#include <QEvent>
#include <QScopedValueRollback>

using namespace KTPrivate;

KTDialogController::KTDialogController(QWidget *window) : KTWindowController(window)
{
    setRunAsSheet(true);
}

KTDialogController::KTDialogController(const QString &interfaceFile)
    : KTWindowController(interfaceFile)
{
    setRunAsSheet(true);
}

KTDialogController::~KTDialogController()
{
    if (_isRunningAsDialog)
        tellHostOfEnd();
}

QVariant KTDialogController::windowDataSourceObjectForKey(const QString &key) const
{
    return _hostWindow ? _hostWindow->exposedDialogDatasource().value(key) : QVariant();
}

void KTDialogController::_configDialog(KTWindowController *hostWindowController)
{
    _hostWindow = hostWindowController;
    configDialog();
}

void KTDialogController::configDialog()
{
    _isRunningAsDialog = true;
    window();
}

void KTDialogController::setRunAsSheet(bool runAsSheet)
{
    _runAsSheet = runAsSheet;
    if (runAsSheet)
        _runAsModal = true;
}

void KTDialogController::setRunAsModal(bool runAsModal)
{
    _runAsModal = runAsModal;
    if (!runAsModal)
        _runAsSheet = false;
}

void KTDialogController::runDialog()
{
    QWidget *const dialog = window();
    if (!dialog) {
        endDialog();
        return;
    }
    QWidget *const host = _hostWindow ? _hostWindow->window() : nullptr;
    // A dialog that is shown already is hidden first, which is no end.
    _isBeginning = true;
    const bool isSheet = _runAsSheet && host;
    if (isSheet || _runAsModal)
        dialog->hide();
    _isBeginning = false;
    if (isSheet)
        NSApplication::beginSheet(dialog, host);
    else if (_runAsModal)
        NSApplication::runModalForWindow(dialog);
    else
        showWindow();
}

void KTDialogController::endDialog(const QVariant & /*sender*/)
{
    const QScopedValueRollback<bool> ending(_isEnding, true);
    QWidget *const dialog = isWindowLoaded() ? window() : nullptr;
    if (dialog) {
        dialog->hide();
        unblock(dialog);
        _hasToldHost = false;
        dialog->close();
        // A window that is just being hidden does not close once more.
        if (!_hasToldHost)
            windowWillClose({dialog});
    } else {
        tellHostOfEnd();
    }
    _hostWindow = nullptr;
    _isRunningAsDialog = false;
}

/// Ends what the dialog blocks: its host, or the whole application.
void KTDialogController::unblock(QWidget *dialog)
{
    if (NSApplication::isSheet(dialog))
        NSApplication::endSheet(dialog);
    else if (NSApplication::modalWindow() == dialog)
        NSApplication::stopModal();
}

bool KTDialogController::eventFilter(QObject *object, QEvent *event)
{
    const bool isHidden = event->type() == QEvent::Hide && !event->spontaneous();
    if (isHidden && isWindowLoaded() && object == window() && _isRunningAsDialog && !_isEnding &&
        !_isBeginning && !isClosing())
        guarded(u"endDialog()", [this] { endDialog(); });
    return KTWindowController::eventFilter(object, event);
}

void KTDialogController::tellHostOfEnd()
{
    _hasToldHost = true;
    const QPointer<KTDialogController> self(this);
    NSApplication::performOnNextTurn(this, [this] { Q_EMIT dialogDidEnd(); });
    KTWindowController *const host = _hostWindow;
    if (host)
        NSApplication::performOnNextTurn(host, [host, self] { host->dialogClosed(self); });
}

bool KTDialogController::validateMenuItem(QAction *item)
{
    return !(NSMenuItem::action(item) == NSSelector("terminate:"));
}

void KTDialogController::windowWillClose(const NSNotification &notification)
{
    KTWindowController::windowWillClose(notification);
    tellHostOfEnd();
    if (_isEnding || !_isRunningAsDialog)
        return;
    // The user has closed it.
    unblock(notification.window);
    _hostWindow = nullptr;
    _isRunningAsDialog = false;
}

void KTDialogController::windowDidBecomeKey(const NSNotification &notification)
{
    if (!_isRunningAsDialog)
        KTWindowController::windowDidBecomeKey(notification);
}

void KTDialogController::windowDidLoad()
{
    if (!_isRunningAsDialog)
        KTWindowController::windowDidLoad();
}
