#pragma once

#include "KTWindowController.h"
#include <KTUtility/KTUtilityExport.h>

#include <QAction>

/// A dialog, which runs as a sheet of the window that it was queued to, or application-modal, or as
/// a plain window. The same object serves again and again.
///
/// Subclasses fill the dialog in configDialog(), from the objects that the host window lends, and
/// have their buttons call endDialog(). While it runs, the dialog is no main window.
///
/// A sheet is always modal, and what is not modal is no sheet: setting one flag sets the other.
/// Without a host window, a sheet becomes a modal window.
///
/// \code
/// class NameDialog : public KTDialogController
/// {
///     Q_OBJECT
///
/// public:
///     NameDialog() : KTDialogController(new QDialog) {}
///     void configDialog() override
///     {
///         KTDialogController::configDialog();
///         show(windowDataSourceObjectForKey(u"record"_s));
///     }
/// };
/// \endcode
class KTUTILITY_EXPORT KTDialogController : public KTWindowController
{
    Q_OBJECT
    Q_PROPERTY(bool runAsSheet READ runAsSheet WRITE setRunAsSheet)
    Q_PROPERTY(bool runAsModal READ runAsModal WRITE setRunAsModal)

public:
    /// A dialog with that window, or with none for one that is loaded later.
    explicit KTDialogController(QWidget *window = nullptr);
    /// A dialog whose window is loaded from an interface file when it is needed.
    explicit KTDialogController(const QString &interfaceFile);
    /// A dialog that is destroyed while it runs has ended; its host is notified.
    ~KTDialogController() override;

    /// Whether it was configured, and has not ended since.
    bool isRunningAsDialog() const { return _isRunningAsDialog; }
    /// The controller of the window over which it runs; null if it does not.
    KTWindowController *hostWindowController() const { return _hostWindow; }
    /// What the host lends under a key; nil without a host.
    QVariant windowDataSourceObjectForKey(const QString &key) const;

    /// Sets the host and calls configDialog().
    void _configDialog(KTWindowController *hostWindowController);
    /// Prepares the dialog to be shown: loads its window.
    virtual void configDialog();
    /// Shows the dialog. Returns at once for sheets and plain windows, after the end for modal
    /// ones. Without a window, as its interface file is missing, it ends at once.
    virtual void runDialog();
    /// Takes the dialog away; the next one of the host's queue follows in the next iteration of the
    /// event loop.
    /// \param sender is ignored; it lets a button call this.
    Q_INVOKABLE virtual void endDialog(const QVariant &sender = {});

    /// Whether it runs as a sheet of its host window; it does unless set.
    bool runAsSheet() const { return _runAsSheet; }
    /// Sets whether it is a sheet. A sheet is modal, too.
    void setRunAsSheet(bool runAsSheet);
    /// Whether nothing else can be used meanwhile; it is modal unless set.
    bool runAsModal() const { return _runAsModal; }
    /// Sets whether it is modal. What is not modal is no sheet, either.
    void setRunAsModal(bool runAsModal);

    /// False for the item that ends the application: that waits for the dialog.
    Q_INVOKABLE virtual bool validateMenuItem(QAction *item);

    void windowDidBecomeKey(const NSNotification &notification) override;
    void windowWillClose(const NSNotification &notification) override;

Q_SIGNALS:
    /// The dialog has ended, in whatever way, unless it was destroyed. Emitted when its host is
    /// told, in the next iteration of the event loop.
    ///
    /// \code
    /// connect(&nameDialog, &KTDialogController::dialogDidEnd, this, [this] { showName(); });
    /// \endcode
    void dialogDidEnd();

protected:
    void windowDidLoad() override;

    /// A dialog that is hidden in another way, such as by Escape, has ended, too.
    bool eventFilter(QObject *object, QEvent *event) override;

    /// Notifies the host of the end, in the next iteration of the event loop.
    void tellHostOfEnd();
    /// Sets the controller of the window that it runs over.
    void setHostWindowController(KTWindowController *host) { _hostWindow = host; }
    /// Sets whether it was configured and has not ended since.
    void setRunningAsDialog(bool isRunning) { _isRunningAsDialog = isRunning; }

private:
    static void unblock(QWidget *dialog);

    QPointer<KTWindowController> _hostWindow;
    bool _isRunningAsDialog = false;
    bool _runAsSheet = true;
    bool _runAsModal = true;
    bool _isBeginning = false;
    bool _isEnding = false;
    bool _hasToldHost = false;
};
