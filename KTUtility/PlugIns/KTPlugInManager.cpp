#include "KTPlugInManager.h"

#include <KTUtility/Bundle/KTDatabaseBundle.h>
#include <KTUtility/Diagnostics/KTLogger.h>
#include <KTUtility/Platform/Files/NSPathUtilities.h>

#include <utility>

using namespace Qt::StringLiterals;

// Which plug-ins there are, and which of them the user wants. How they are loaded is in
// KTPlugInLoading.cpp, their settings are in KTPlugInDefaults.cpp.

namespace {
/// A folder below another; "%@" in the component is the name.
QString folderIn(const QString &folder, QStringView component, const QString &name)
{
    return NSString::stringByStandardizingPath(NSString::stringByAppendingPathComponent(
        folder, NSString::stringWithFormat(component, name)));
}

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
    // What an instance does while it goes must not find those that went before.
    const QMap<QString, Instance> instances = std::exchange(_instancesByIdentifier, {});
    for (const Instance &instance : instances)
        delete instance.object.data();
}

// --- Finding ------------------------------------------------------------------------------------

QStringList KTPlugInManager::searchFolders() const
{
    const QString framework = NSBundle::frameworkBundle().bundlePath();
    return {folderIn(KTDatabaseBundle::cobbleSupportFolder(), u"PlugIns/%@", _searchFolder),
            folderIn(framework, u"../../PlugIns/%@", _searchFolder),
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

void KTPlugInManager::skipBundle(const NSBundle &bundle)
{
    const QString &path = bundle.bundlePath();
    const QString reason = reasonToSkip(bundle);
    KTLog(kLog_invalid, 7, u"Plug-in %@ is skipped: %@", path, reason);
    _statusByPath.insert(path, {path, bundle.bundleIdentifier(), KTPlugInState::Skipped, reason});
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

/// Keeps what went wrong, if anything did, and logs it.
void KTPlugInManager::setFailure(const QString &path, const QString &error)
{
    if (error.isNull())
        return;
    KTLog(kLog_invalid, 4, u"Plug-in %@: %@", path, error);
    const auto status = _statusByPath.find(path);
    if (status != _statusByPath.end())
        status->lastError = error;
}

// --- Enabling -----------------------------------------------------------------------------------

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
