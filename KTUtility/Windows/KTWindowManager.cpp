#include "KTWindowManager.h"

#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Keys/KeyValueTarget.h>
#include <KTUtility/Platform/Values/NSStringFormat.h>

using namespace KTPrivate;

namespace {
/// A new dialog controller of a class by name; null if there is no such class, or it is none.
std::shared_ptr<KTDialogController> newDialogController(const QString &className)
{
    const NSClass *const known = NSClassRegistry::classNamed(className);
    std::unique_ptr<QObject> object = known ? known->newInstance() : nullptr;
    auto *const controller = qobject_cast<KTDialogController *>(object.get());
    if (!controller)
        return nullptr;
    object.release();
    return std::shared_ptr<KTDialogController>(controller);
}

/// What describes itself among the elements of a collection.
QVariant asVariant(QObject *object)
{
    return QVariant::fromValue(object);
}
} // namespace

KTWindowManager *KTWindowManager::sharedWindowManager()
{
    static auto *const manager = new KTWindowManager;
    return manager;
}

KTWindowManager::KTWindowManager() = default;
KTWindowManager::~KTWindowManager() = default;

KTWindowController *KTWindowManager::currentMainWindowController() const
{
    return _mainWindows.isEmpty() ? nullptr : _mainWindows.first();
}

void KTWindowManager::windowControllerBecameVisible(KTWindowController *controller, bool isVisible)
{
    if (!isVisible)
        _mainWindows.removeAll(controller);
    else if (controller && !_mainWindows.contains(controller))
        _mainWindows.append(controller);
}

void KTWindowManager::windowControllerBecameMain(KTWindowController *controller)
{
    if (!controller)
        return;
    _mainWindows.removeAll(controller);
    _mainWindows.prepend(controller);
}

void KTWindowManager::registerDialogController(
    const std::shared_ptr<KTDialogController> &controller, const QString &forKey)
{
    if (controller)
        _loadedDialogs.insert(forKey, controller);
    else
        _loadedDialogs.remove(forKey);
}

void KTWindowManager::registerDialogControllerClassName(const QString &name)
{
    _dialogClassNames.insert(name);
}

KTDialogController *KTWindowManager::dialogControllerForKey(const QString &key)
{
    if (const auto loaded = _loadedDialogs.value(key))
        return loaded.get();
    const auto made = _dialogClassNames.contains(key) ? newDialogController(key) : nullptr;
    if (made)
        _loadedDialogs.insert(key, made);
    return made.get();
}

bool KTWindowManager::queueDialogToCurrentMainWindowForKey(const QString &key, bool andRun)
{
    KTWindowController *const window = currentMainWindowController();
    KTDialogController *const dialog = window ? dialogControllerForKey(key) : nullptr;
    if (!dialog)
        return false;
    window->addDialogControllerToQueue(dialog);
    if (andRun)
        window->runDialogQueue();
    return true;
}

QString KTWindowManager::description() const
{
    QVariantList windows;
    for (KTWindowController *const window : _mainWindows)
        windows += asVariant(window);
    QStringList names(_dialogClassNames.begin(), _dialogClassNames.end());
    names.sort();
    QVariantMap dialogs;
    for (auto dialog = _loadedDialogs.begin(); dialog != _loadedDialogs.end(); ++dialog)
        dialogs.insert(dialog.key(), asVariant(dialog.value().get()));
    return NSString::stringWithFormat(u"%@\nWindows:%@\nDialog Classnames:%@\nLoaded dialogs:%@\n",
                                      KeyValueTarget::of(this).description(), QVariant(windows),
                                      QVariant(names), QVariant(dialogs));
}
