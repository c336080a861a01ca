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
    auto *const alert =
        new NSAlert(u"Show the library “%1” now?"_s.arg(_libraryName), u"Show"_s, u"Not Now"_s,
                    QString(), u"It is in the list at the left in any case."_s);
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
