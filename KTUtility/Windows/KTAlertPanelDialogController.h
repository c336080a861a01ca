#pragma once

#include "KTDialogController.h"

/// A place in the queue of dialogs for an alert that the application shows by itself: it has no
/// window. The application shows the alert when the place is run, and calls endDialog() when the
/// alert is closed.
///
/// \code
/// class DoneAlert : public KTAlertPanelDialogController
/// {
/// public:
///     void runDialog() override
///     {
///         KTAlertPanelDialogController::runDialog();
///         alert.beginSheetModalForWindow(hostWindowController()->window(), …);
///     }
/// };
/// \endcode
class KTUTILITY_EXPORT KTAlertPanelDialogController : public KTDialogController
{
    Q_OBJECT

public:
    KTAlertPanelDialogController();

    /// Counts as running; shows nothing.
    void runDialog() override;
    /// The alert has been closed.
    /// \param sender is ignored.
    void endDialog(const QVariant &sender = {}) override;

    void windowDidBecomeKey(const NSNotification &notification) override;
    void windowWillClose(const NSNotification &notification) override;

protected:
    void windowDidLoad() override;
};
