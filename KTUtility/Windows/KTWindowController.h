#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSWindowController.h>

#include <QList>
#include <QPointer>
#include <QVariantMap>

class KTDialogController;

/// A controller of a main window: it keeps a queue of dialogs that run over the window one after
/// another, and lends them objects by key.
///
/// Windows enter themselves in the KTWindowManager when they are loaded, move to its front when
/// they get the keyboard, and leave it when they close. A dialog that is destroyed while it waits
/// is passed over.
///
/// \code
/// windowController->exposeObjectToDialog(QVariant::fromValue(record), u"record"_s);
/// windowController->addDialogControllerToQueue(&deleteDialog);
/// windowController->addDialogControllerToQueue(&doneDialog);
/// windowController->runDialogQueue();    // the first appears, and the second when it is closed
/// \endcode
class KTUTILITY_EXPORT KTWindowController : public NSWindowController
{
    Q_OBJECT

public:
    /// \param window may be null for a window that is loaded later.
    explicit KTWindowController(QWidget *window = nullptr);
    /// A controller whose window is loaded from an interface file when it is needed.
    explicit KTWindowController(const QString &interfaceFile);
    /// Leaves the window manager.
    ~KTWindowController() override;

    /// Puts a dialog behind those that wait. The same one may wait several times, unless
    /// refusesDuplicateDialogs().
    void addDialogControllerToQueue(KTDialogController *dialog);
    /// Whether a dialog that waits for this window or runs over it is not queued once more. Off
    /// unless set.
    bool refusesDuplicateDialogs() const { return _refusesDuplicateDialogs; }
    void setRefusesDuplicateDialogs(bool refuses) { _refusesDuplicateDialogs = refuses; }
    /// Starts with the first dialog that waits; each that closes starts the next one. While the
    /// window is closed, what waits is put off; it goes on when the window is opened or this is
    /// called again.
    void runDialogQueue();
    /// Takes the first dialog from the queue and runs it; without one, the queue comes to rest.
    void runNextDialogInQueue();
    /// A dialog reports that it has closed: the next one runs while the queue is worked through.
    Q_INVOKABLE void dialogClosed(KTDialogController *dialog);
    /// The dialogs that wait, in their order.
    QList<KTDialogController *> dialogQueue() const;
    /// Whether closing a dialog starts the next one.
    bool continueRunningQueue() const { return _continueRunningQueue; }

    /// Lends an object to dialogs; nil takes it back.
    void exposeObjectToDialog(const QVariant &object, const QString &forKey);
    /// What is lent to dialogs, by its key.
    const QVariantMap &exposedDialogDatasource() const { return _exposedDialogDatasource; }

    /// What NSWindowController's would be, and the dialogs that wait.
    Q_INVOKABLE virtual QString description() const;

    void windowDidBecomeKey(const NSNotification &notification) override;
    void windowWillClose(const NSNotification &notification) override;

protected:
    void windowDidLoad() override;
    /// Goes on with its queue when the window is opened again.
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void windowWasOpened();
    bool isQueuedOrRunning(const KTDialogController *dialog) const;

    QList<QPointer<KTDialogController>> _dialogQueue;
    QVariantMap _exposedDialogDatasource;
    bool _continueRunningQueue = false;
    bool _refusesDuplicateDialogs = false;
    bool _isClosed = false;
    bool _isPutOff = false;
};
