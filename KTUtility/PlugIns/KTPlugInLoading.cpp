#include "KTPlugInClass.h"
#include "KTPlugInManager.h"

#include <KTUtility/Diagnostics/KTLogger.h>

using namespace Qt::StringLiterals;

// From a bundle to an instance, and back. Hooks and plug-ins may call the manager, so that nothing
// here keeps references into its dictionaries across such a call.

namespace {
/// Runs code of a plug-in; what it threw, or nil.
template<typename Action>
QString failureOf(const Action &action)
{
    try {
        action();
        return {};
    } catch (const std::exception &exception) {
        return u"threw "_s + QString::fromUtf8(exception.what());
    } catch (...) {
        return u"threw something that is no std::exception"_s;
    }
}

bool conforms(const NSClass *principalClass, const NSProtocol &protocol)
{
    return principalClass && principalClass->conformsToProtocol(protocol);
}
} // namespace

bool KTPlugInManager::isPluginLoaded(const QString &identifier) const
{
    return pluginWithIdentifier(identifier) != nullptr;
}

QObject *KTPlugInManager::pluginWithIdentifier(const QString &identifier) const
{
    return _instancesByIdentifier.value(identifier).object;
}

QList<QObject *> KTPlugInManager::allLoadedPlugins() const
{
    QList<QObject *> plugins;
    for (const Instance &instance : _instancesByIdentifier) {
        if (instance.object)
            plugins += instance.object;
    }
    return plugins;
}

// --- Loading ------------------------------------------------------------------------------------

void KTPlugInManager::loadAllPlugins()
{
    for (const QString &identifier : _pluginsByIdentifier.keys()) {
        if (isPluginEnabled(identifier))
            loadPluginWithIdentifier(identifier);
    }
    finishedLoadingPlugins();
}

QObject *KTPlugInManager::loadPluginWithIdentifier(const QString &identifier)
{
    const auto registered = _pluginsByIdentifier.constFind(identifier);
    if (registered == _pluginsByIdentifier.constEnd() || isPluginLoaded(identifier))
        return nullptr;
    NSBundle bundle = *registered;
    const NSClass *const principalClass = loadClass(bundle);
    std::unique_ptr<QObject> object =
        principalClass ? makeInstance(bundle, *principalClass) : nullptr;
    if (!principalClass || !object) {
        setState(bundle.bundlePath(), KTPlugInState::Failed);
        return nullptr;
    }
    const QPointer<QObject> plugin = adopt(std::move(object), *principalClass, identifier);
    setState(bundle.bundlePath(), KTPlugInState::Loaded);
    didLoadPlugin(plugin, bundle);
    return plugin;
}

/// Loads the code and takes the principal class of a bundle; null if there is none. Deliberate: a
/// class that does not conform is logged, the code given back, and the class loaded all the same.
const NSClass *KTPlugInManager::loadClass(NSBundle &bundle)
{
    QString error;
    const NSClass *const principalClass = bundle.principalClass(&error);
    clearFailure(bundle.bundlePath());
    setFailure(bundle.bundlePath(), error);
    if (_protocol.isNil() || conforms(principalClass, _protocol))
        return principalClass;
    const QString &protocol = _protocol.description();
    KTLogger::sharedLogger()->logComponent(kLog_invalid, 4, "PlugIns/KTPlugInManager", 150,
                                           u"Plug-in does not conform to %@", protocol);
    if (principalClass)
        setFailure(bundle.bundlePath(), u"does not conform to "_s + protocol);
    bundle.unload();
    return principalClass;
}

std::unique_ptr<QObject> KTPlugInManager::makeInstance(const NSBundle &bundle,
                                                       const NSClass &principalClass)
{
    std::unique_ptr<QObject> object;
    const QString failure = failureOf([&] {
        if (const auto *const receiver = dynamic_cast<const KTPlugInClass *>(&principalClass))
            receiver->pluginDidLoadBundle(bundle, _coordinator);
        object = principalClass.newInstance();
    });
    if (!object) {
        const QString reason = failure.isNull() ? u"cannot be made"_s : failure;
        setFailure(bundle.bundlePath(), principalClass.name() + u' ' + reason);
    }
    return object;
}

/// Takes an instance over, in place of one that was made meanwhile.
QObject *KTPlugInManager::adopt(std::unique_ptr<QObject> object, const NSClass &principalClass,
                                const QString &identifier)
{
    delete pluginWithIdentifier(identifier);
    _instancesByIdentifier.insert(identifier, {object.get(), &principalClass});
    return object.release();
}

// --- Unloading and reloading --------------------------------------------------------------------

void KTPlugInManager::unloadPluginWithIdentifier(const QString &identifier, bool deleteFromDatabase)
{
    if (!isPluginLoaded(identifier))
        return;
    const QString path = pathOfPlugin(identifier);
    const Instance instance = _instancesByIdentifier.value(identifier);
    tell(path, instance.principalClass, &KTPlugInClass::pluginWillUnload);
    if (instance.object)
        willUnloadPlugin(instance.object, deleteFromDatabase);
    _instancesByIdentifier.remove(identifier);
    setState(path, KTPlugInState::Registered);
    tell(path, instance.principalClass, &KTPlugInClass::pluginDidUnload);
    delete instance.object.data();
}

void KTPlugInManager::reloadPlugins()
{
    for (const QString &identifier : _instancesByIdentifier.keys()) {
        if (isPluginLoaded(identifier) && _pluginsByIdentifier.contains(identifier))
            reloadPlugin(identifier);
    }
    finishedLoadingPlugins();
}

void KTPlugInManager::reloadPlugin(const QString &identifier)
{
    NSBundle bundle = *_pluginsByIdentifier.constFind(identifier);
    const QPointer<QObject> plugin = pluginWithIdentifier(identifier);
    QString error;
    const NSClass *const principalClass = bundle.principalClass(&error);
    setFailure(bundle.bundlePath(), error);
    tell(bundle.bundlePath(), principalClass, &KTPlugInClass::pluginWillUnload);
    if (principalClass)
        tellDidLoad(bundle, *principalClass);
    if (plugin)
        didLoadPlugin(plugin, bundle);
}

/// Tells a class that it was loaded, which it must be able to hear here.
void KTPlugInManager::tellDidLoad(const NSBundle &bundle, const NSClass &principalClass)
{
    const auto *const receiver = dynamic_cast<const KTPlugInClass *>(&principalClass);
    if (!receiver || !receiver->respondsToPluginDidLoadBundle()) {
        setFailure(bundle.bundlePath(),
                   principalClass.name() +
                       u" does not answer pluginDidLoadBundle:updateHandler:"_s);
        return;
    }
    const QString failure = failureOf([&] { receiver->pluginDidLoadBundle(bundle, _coordinator); });
    if (!failure.isNull())
        setFailure(bundle.bundlePath(), u"pluginDidLoadBundle "_s + failure);
}

/// Sends a class something, if it is more than a registered class.
void KTPlugInManager::tell(const QString &path, const NSClass *principalClass,
                           void (KTPlugInClass::*message)() const)
{
    const auto *const receiver = dynamic_cast<const KTPlugInClass *>(principalClass);
    const QString failure = failureOf([&] {
        if (receiver)
            (receiver->*message)();
    });
    if (!failure.isNull())
        setFailure(path, receiver->name() + u' ' + failure);
}
