#pragma once

#include <KTUtility/KTDialogController>

/// Lists the alerts that the user has silenced, and lets them speak again.
class SilencedAlerts : public KTDialogController
{
    Q_OBJECT

public:
    Q_INVOKABLE SilencedAlerts();

    void configDialog() override;
    /// Has the selected alerts shown again.
    void showAgain();

protected:
    void windowDidLoad() override;

private:
    void fill();
    void updateButton();
};
