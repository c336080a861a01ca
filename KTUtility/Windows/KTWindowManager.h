#pragma once

#include "KTDialogController.h"
#include <KTUtility/KTUtilityExport.h>

#include <QMap>
#include <QSet>

#include <memory>

/// The main windows of the application, the current one first, and its dialogs by key.
///
/// Dialogs are registered ready made, or by the names of their classes (KT_REGISTER_CLASS): then
/// they are made when they are first asked for, and kept.
///
/// \code
/// KTWindowManager *manager = KTWindowManager::sharedWindowManager();
/// manager->registerDialogControllerClassName(u"NameDialog"_s);
/// manager->queueDialogToCurrentMainWindowForKey(u"NameDialog"_s, true);
/// \endcode
class KTUTILITY_EXPORT KTWindowManager : public QObject
{
    Q_OBJECT

public:
    /// The one object, made at the first call.
    static KTWindowManager *sharedWindowManager();

    KTWindowManager();
    ~KTWindowManager() override;

    // --- Main windows

    /// The controllers of the open main windows; the one that was main last comes first.
    const QList<KTWindowController *> &mainWindowArray() const { return _mainWindows; }
    /// The first of them; null if there is none.
    KTWindowController *currentMainWindowController() const;
    /// Puts a window behind the others, unless it is there already, or takes it away.
    void windowControllerBecameVisible(KTWindowController *controller, bool isVisible);
    /// Puts a window before the others.
    void windowControllerBecameMain(KTWindowController *controller);

    // --- Dialogs

    /// Keeps a dialog under a key; null forgets it.
    void registerDialogController(const std::shared_ptr<KTDialogController> &controller,
                                  const QString &forKey);
    /// Makes a class known, whose name is the key of its dialog.
    void registerDialogControllerClassName(const QString &name);
    /// The dialog for a key, made now if only its class is known; null if there is none.
    KTDialogController *dialogControllerForKey(const QString &key);
    /// All dialogs that were registered or made, by key.
    const QMap<QString, std::shared_ptr<KTDialogController>> &currentLoadedDialog() const
    {
        return _loadedDialogs;
    }
    /// Puts a dialog into the queue of the current main window.
    /// \param andRun whether to run the queue.
    /// \return false without a main window, or a dialog for the key.
    bool queueDialogToCurrentMainWindowForKey(const QString &key, bool andRun);

    /// The object, and what the three collections hold.
    Q_INVOKABLE QString description() const;

private:
    QList<KTWindowController *> _mainWindows;
    QSet<QString> _dialogClassNames;
    QMap<QString, std::shared_ptr<KTDialogController>> _loadedDialogs;
};
