#pragma once

#include "ImportSheet.h"

#include <KTUtility/KTAlertPanelDialogController>

/// Asks after an import whether its library is to be shown: an alert that takes its turn behind the
/// summary.
class ShowLibraryAlert : public KTAlertPanelDialogController
{
    Q_OBJECT

public:
    void configDialog() override;
    void runDialog() override;

Q_SIGNALS:
    void chosen(const QString &libraryName);

private:
    QString _libraryName;
};
