#include "ShowLibraryAlert.h"

#include <KTUtility/KTWindowController>
#include <KTUtility/NSAlert>

#include <QPointer>

using namespace Qt::StringLiterals;

void ShowLibraryAlert::configDialog()
{
    KTAlertPanelDialogController::configDialog();
    _libraryName = windowDataSourceObjectForKey(ImportSheet::ResultKey)
                       .value<ImportResult>()
                       .stored.library.name;
}

void ShowLibraryAlert::runDialog()
{
    KTAlertPanelDialogController::runDialog();
    auto *const alert = new NSAlert(tr("Show the library “%1” now?").arg(_libraryName), tr("Show"),
                                    tr("Not Now"), QString(), tr("It is in the list in any case."));
    alert->setAlertStyle(NSInformationalAlertStyle);
    const QPointer<ShowLibraryAlert> self(this);
    alert->beginSheetModalForWindow(hostWindowController()->window(),
                                    [self](NSAlert *, int returnCode) {
                                        if (!self)
                                            return;
                                        if (returnCode == NSAlertDefaultReturn)
                                            Q_EMIT self->chosen(self->_libraryName);
                                        if (self)
                                            self->endDialog();
                                    });
}
