#include "KTAlertPanelDialogController.h"

KTAlertPanelDialogController::KTAlertPanelDialogController()
    : KTDialogController(static_cast<QWidget *>(nullptr))
{
}

void KTAlertPanelDialogController::runDialog()
{
    setRunningAsDialog(true);
}

void KTAlertPanelDialogController::endDialog(const QVariant & /*sender*/)
{
    setRunningAsDialog(false);
    tellHostOfEnd();
    setHostWindowController(nullptr);
}

void KTAlertPanelDialogController::windowDidBecomeKey(const NSNotification &) {}
void KTAlertPanelDialogController::windowWillClose(const NSNotification &) {}
void KTAlertPanelDialogController::windowDidLoad() {}
