#include "KTPlugInManager.h"

#include "PlugInCode_p.h"
#include "PlugInDefaults_p.h"
#include "PlugInNote_p.h"
#include <KTUtility/Bundle/KTDatabaseBundle.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Classes/NSClass.h>
#include <KTUtility/Platform/Files/Module_p.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>
#include <KTUtility/Platform/Files/ProgramIdentity_p.h>

#include <utility>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

// Hooks and plug-ins may call the manager, so that nothing here keeps references into its
// dictionaries across such a call.

namespace {
/// A folder below another; "%@" in the component is the name.
QString folderIn(const QString &folder, QStringView component, const QString &name)
{
    return NSString::stringByStandardizingPath(NSString::stringByAppendingPathComponent(
        folder, NSString::stringWithFormat(component, name)));
}

const QString CrashText = u"a program ended while its code ran"_s;

/// Why a bundle is no plug-in.
QString reasonToSkip(const NSBundle &bundle)
{
    if (bundle.infoDictionary().isEmpty())
        return u"Contents/Info.plist is missing, empty or damaged"_s;
    return bundle.bundleIdentifier().isNull() ? u"CFBundleIdentifier is missing"_s
                                              : u"NSPrincipalClass is missing"_s;
}
} // namespace

KTPlugInManager::KTPlugInManager(QObject *instanceCoordinator) : _coordinator(instanceCoordinator)
{
}

KTPlugInManager::~KTPlugInManager()
{
    // What an instance does while it is destroyed must not find those that were destroyed before.
    const QMap<QString, Instance> instances = std::exchange(_instancesByIdentifier, {});
    for (auto instance = instances.begin(); instance != instances.end(); ++instance) {
        const PlugInNote note = noteOf(instance.key());
        delete instance->object.data();
    }
}

// --- Finding ------------------------------------------------------------------------------------

QStringList KTPlugInManager::searchFolders() const
{
    const QString users =
        folderIn(KTDatabaseBundle::cobbleSupportFolder(), u"PlugIns/%@", _searchFolder);
    if (const ProgramIdentity *const program = ProgramIdentity::current()) {
        QStringList folders{users};
        for (const QString &folder : program->plugInFolders)
            folders += folderIn(folder, u"%@", _searchFolder);
        return folders;
    }
    const QString framework = NSBundle::frameworkBundle().bundlePath();
    return {users, folderIn(framework, u"../../PlugIns/%@", _searchFolder),
            folderIn(framework, u"../Cobble.app/Contents/PlugIns/%@", _searchFolder)};
}

void KTPlugInManager::registerPlugins()
{
    for (const QString &folder : searchFolders()) {
        for (const QString &path : NSBundle::pathsForResourcesOfType(u"bundle"_s, folder))
            registerBundle(NSBundle(path));
    }
}

void KTPlugInManager::registerBundle(const NSBundle &bundle)
{
    const QString identifier = bundle.bundleIdentifier();
    if (identifier.isNull() || bundle.principalClassName().isNull()) {
        skipBundle(bundle);
        return;
    }
    const bool wasLoaded = isPluginLoaded(identifier);
    if (_pluginsByIdentifier.contains(identifier))
        replaceBundle(bundle, identifier);
    _pluginsByIdentifier.insert(identifier, bundle);
    _statusByPath.insert(bundle.bundlePath(),
                         {bundle.bundlePath(), identifier, KTPlugInState::Registered, {}});
    if (wasLoaded)
        loadPluginWithIdentifier(identifier);
    finishedLoadingPlugins();
}

/// Deliberate: without a message. pluginStatus() knows it.
void KTPlugInManager::skipBundle(const NSBundle &bundle)
{
    const QString &path = bundle.bundlePath();
    _statusByPath.insert(
        path, {path, bundle.bundleIdentifier(), KTPlugInState::Skipped, reasonToSkip(bundle)});
}

/// Unregisters the bundle that another one takes the place of.
void KTPlugInManager::replaceBundle(const NSBundle &bundle, const QString &identifier)
{
    const QString path = pathOfPlugin(identifier);
    unregisterBundleWithIdentifier(identifier);
    _statusByPath.insert(
        path, {path, identifier, KTPlugInState::Replaced, u"replaced by "_s + bundle.bundlePath()});
}

/// The folder of a registered bundle; nil if there is none.
QString KTPlugInManager::pathOfPlugin(const QString &identifier) const
{
    const auto bundle = _pluginsByIdentifier.constFind(identifier);
    return bundle == _pluginsByIdentifier.constEnd() ? QString() : bundle->bundlePath();
}

void KTPlugInManager::unregisterBundleWithIdentifier(const QString &identifier)
{
    if (!_pluginsByIdentifier.contains(identifier))
        return;
    unloadPluginWithIdentifier(identifier, false);
    const auto bundle = _pluginsByIdentifier.find(identifier);
    if (bundle == _pluginsByIdentifier.end())
        return;
    bundle->unload();
    // Meanwhile, the folder may hold another plug-in.
    const QString path = bundle->bundlePath();
    if (_statusByPath.value(path).identifier == identifier)
        _statusByPath.remove(path);
    _pluginsByIdentifier.erase(bundle);
}

QList<KTPlugInStatus> KTPlugInManager::pluginStatus() const
{
    QList<KTPlugInStatus> all = _statusByPath.values();
    for (KTPlugInStatus &status : all) {
        // Somebody else may have destroyed the instance.
        if (status.state == KTPlugInState::Loaded && !isPluginLoaded(status.identifier))
            status.state = KTPlugInState::Registered;
        if (status.state == KTPlugInState::Registered && isPluginPassedOver(status.identifier)) {
            status.state = KTPlugInState::PassedOver;
            status.lastError = CrashText;
        }
    }
    return all;
}

void KTPlugInManager::setState(const QString &path, KTPlugInState state)
{
    const auto status = _statusByPath.find(path);
    if (status != _statusByPath.end())
        status->state = state;
}

void KTPlugInManager::clearFailure(const QString &path)
{
    const auto status = _statusByPath.find(path);
    if (status != _statusByPath.end())
        status->lastError = QString();
}

/// Keeps what went wrong, if anything did.
void KTPlugInManager::keepFailure(const QString &path, const QString &error)
{
    const auto status = _statusByPath.find(path);
    if (status != _statusByPath.end() && !error.isNull())
        status->lastError = error;
}

/// The same for what has no message of its own, and should not be overlooked.
void KTPlugInManager::setFailure(const QString &path, const QString &error)
{
    if (!error.isNull())
        KTLog(kLog_invalid, 4, u"Plug-in %@: %@", path, error);
    keepFailure(path, error);
}

// --- Loading ------------------------------------------------------------------------------------

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

void KTPlugInManager::loadAllPlugins()
{
    for (const QString &identifier : _pluginsByIdentifier.keys()) {
        if (!isPluginEnabled(identifier) || isPluginLoaded(identifier))
            continue;
        if (isPluginPassedOver(identifier))
            setFailure(pathOfPlugin(identifier), CrashText);
        else
            loadPluginWithIdentifier(identifier);
    }
    finishedLoadingPlugins();
}

bool KTPlugInManager::isPluginPassedOver(const QString &identifier) const
{
    const auto bundle = _pluginsByIdentifier.constFind(identifier);
    return _passesOverCrashed && bundle != _pluginsByIdentifier.constEnd() &&
           PlugInNote::isLeftFor(*bundle);
}

QString KTPlugInManager::reasonNotToLoadPlugin(const QString &identifier) const
{
    const auto bundle = _pluginsByIdentifier.constFind(identifier);
    if (bundle == _pluginsByIdentifier.constEnd() || isPluginLoaded(identifier))
        return {};
    return Module::rejectionOf(bundle->executablePath(), bundle->bundlePath());
}

/// The note that names a plug-in while its code runs.
PlugInNote KTPlugInManager::noteOf(const QString &identifier) const
{
    const auto bundle = _pluginsByIdentifier.constFind(identifier);
    const bool isNoted = _passesOverCrashed && bundle != _pluginsByIdentifier.constEnd();
    return PlugInNote(isNoted ? &*bundle : nullptr);
}

void KTPlugInManager::callPlugin(const QString &identifier, const std::function<void()> &code) const
{
    const PlugInNote note = noteOf(identifier);
    code();
}

QObject *KTPlugInManager::loadPluginWithIdentifier(const QString &identifier)
{
    const auto registered = _pluginsByIdentifier.constFind(identifier);
    if (registered == _pluginsByIdentifier.constEnd() || isPluginLoaded(identifier))
        return nullptr;
    NSBundle bundle = *registered;
    if (_passesOverCrashed)
        PlugInNote::removeLeftFor(bundle);
    const NSClass *principalClass = nullptr;
    std::unique_ptr<QObject> object;
    callPlugin(identifier, [&] {
        principalClass = loadClass(bundle);
        object = principalClass ? makeInstance(bundle, *principalClass) : nullptr;
    });
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
    if (_protocol.isNil() || (principalClass && principalClass->conformsToProtocol(_protocol)))
        return principalClass;
    const QString &protocol = _protocol.description();
    KTLogger::sharedLogger()->logComponent(kLog_invalid, 4, "PlugIns/KTPlugInManager", 150,
                                           u"Plug-in does not conform to %@", protocol);
    if (principalClass)
        keepFailure(bundle.bundlePath(), u"does not conform to "_s + protocol);
    bundle.unload();
    return principalClass;
}

std::unique_ptr<QObject> KTPlugInManager::makeInstance(const NSBundle &bundle,
                                                       const NSClass &principalClass)
{
    QString error;
    std::unique_ptr<QObject> object =
        PlugInCode::newInstance(principalClass, bundle, _coordinator, &error);
    setFailure(bundle.bundlePath(), error);
    if (!object && error.isNull())
        keepFailure(bundle.bundlePath(), principalClass.name() + u" cannot be made");
    return object;
}

/// Takes an instance over, in place of one that was made meanwhile.
QObject *KTPlugInManager::adopt(std::unique_ptr<QObject> object, const NSClass &principalClass,
                                const QString &identifier)
{
    callPlugin(identifier, [&] { delete pluginWithIdentifier(identifier); });
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
    callPlugin(identifier,
               [&] { setFailure(path, PlugInCode::tellWillUnload(instance.principalClass)); });
    if (instance.object)
        willUnloadPlugin(instance.object, deleteFromDatabase);
    _instancesByIdentifier.remove(identifier);
    setState(path, KTPlugInState::Registered);
    callPlugin(identifier, [&] {
        setFailure(path, PlugInCode::tellDidUnload(instance.principalClass));
        delete instance.object.data();
    });
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
    callPlugin(identifier, [&] { notifyOfReload(bundle); });
    if (plugin)
        didLoadPlugin(plugin, bundle);
}

void KTPlugInManager::notifyOfReload(NSBundle &bundle)
{
    const QString path = bundle.bundlePath();
    QString error;
    const NSClass *const principalClass = bundle.principalClass(&error);
    setFailure(path, error);
    setFailure(path, PlugInCode::tellWillUnload(principalClass));
    if (!principalClass)
        return;
    if (PlugInCode::canTellDidLoad(*principalClass))
        setFailure(path, PlugInCode::tellDidLoad(*principalClass, bundle, _coordinator));
    else
        keepFailure(path, principalClass->name() +
                              u" does not answer pluginDidLoadBundle:updateHandler:");
}

// --- Settings -----------------------------------------------------------------------------------

QVariant KTPlugInManager::pluginDefaultsObjectForKey(const QString &key) const
{
    return PlugInDefaults::objectForKey(key);
}

bool KTPlugInManager::pluginDefaultsSetObject(const QVariant &object, const QString &forKey)
{
    return PlugInDefaults::setObject(object, forKey);
}

bool KTPlugInManager::pluginDefaultsRegisterDefaults(const QVariantMap &defaults)
{
    return PlugInDefaults::registerDefaults(defaults);
}

// --- Enabling -----------------------------------------------------------------------------------

bool KTPlugInManager::isPluginEnabled(const QString &identifier) const
{
    return PlugInDefaults::isInList(identifier, _enabledKey);
}

// Deliberate: enabling twice lists a plug-in twice; disabling removes both.
bool KTPlugInManager::setEnabledForPlugin(bool enabled, const QString &identifier)
{
    return PlugInDefaults::setInList(enabled, identifier, _enabledKey);
}

void KTPlugInManager::enablePluginWithIdentifier(const QString &identifier)
{
    if (isPluginEnabled(identifier) || isPluginLoaded(identifier))
        return;
    willEnablePluginWithIdentifier(identifier);
    loadPluginWithIdentifier(identifier);
    if (isPluginLoaded(identifier))
        setEnabledForPlugin(true, identifier);
    finishedLoadingPlugins();
}

// Deliberate: a plug-in that is enabled and could not be loaded stays enabled.
void KTPlugInManager::disablePluginWithIdentifier(const QString &identifier)
{
    if (!isPluginEnabled(identifier) || !isPluginLoaded(identifier))
        return;
    willDisablePluginWithIdentifier(identifier);
    unloadPluginWithIdentifier(identifier, true);
    setEnabledForPlugin(false, identifier);
}

// --- Hooks --------------------------------------------------------------------------------------

void KTPlugInManager::finishedLoadingPlugins() {}

void KTPlugInManager::didLoadPlugin(QObject *plugin, const NSBundle &fromBundle)
{
    Q_UNUSED(plugin)
    Q_UNUSED(fromBundle)
}

void KTPlugInManager::willUnloadPlugin(QObject *plugin, bool deleteFromDatabase)
{
    Q_UNUSED(plugin)
    Q_UNUSED(deleteFromDatabase)
}

void KTPlugInManager::willEnablePluginWithIdentifier(const QString &identifier)
{
    Q_UNUSED(identifier)
}

void KTPlugInManager::willDisablePluginWithIdentifier(const QString &identifier)
{
    Q_UNUSED(identifier)
}
