#include "ShowLibraryAlert.h"

#include <KTUtility/KTWindowController>
#include <KTUtility/NSAlert>

#include <QPointer>

void ShowLibraryAlert::configDialog()
{
    KTAlertPanelDialogController::configDialog();
    _libraryName = windowDataSourceObjectForKey(ImportSheet::ResultKey)
                       .value<ImportResult>()
                       .outcome.stored.name;
}

void ShowLibraryAlert::runDialog()
{
    KTAlertPanelDialogController::runDialog();
    auto *const alert = new NSAlert(QStringLiteral("Show the library “%1” now?").arg(_libraryName),
                                    QStringLiteral("Show"), QStringLiteral("Not Now"), QString(),
                                    QStringLiteral("It is in the list at the left in any case."));
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
