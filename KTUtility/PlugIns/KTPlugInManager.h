#pragma once

#include "KTPlugInStatus.h"
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Classes/NSProtocol.h>
#include <KTUtility/Platform/Files/NSBundle.h>

#include <QList>
#include <QMap>
#include <QObject>
#include <QPointer>
#include <QVariantMap>

#include <functional>

namespace KTPrivate {
class PlugInNote;
}

/// Finds, loads, enables and unloads the plug-ins of one kind.
///
/// A plug-in is a folder "Name.bundle" with Contents/Info.plist, which names its identifier
/// (CFBundleIdentifier) and its principal class (NSPrincipalClass), and with a shared object in
/// Contents/Linux; see KT_PRINCIPAL_CLASS for the class and kt_add_plugin() of CMake for the
/// folder. Plug-ins are found without opening code. What is enabled is kept in a settings domain
/// of its own, "<host identifier>.plugins", and survives restarts.
///
/// A host makes one manager for each kind of plug-in, sets protocol, search folder and enabled
/// key, registers, and loads. It inherits the manager to act on the hooks. For the main thread.
///
/// Plug-in code runs in the process of the host. What it throws is caught, is logged under
/// "invalid" at level 4, and is found in pluginStatus(); a crash, or an exception while its static
/// objects are made, ends the process. With setPassesOverCrashed(), it does so only once.
///
/// \code
/// KTPlugInManager exporters(application);
/// exporters.setProtocol(NSProtocol::of<Exporter>());
/// exporters.setSearchFolder(u"Exporters"_s);
/// exporters.setEnabledKey(u"enabledExporters"_s);
/// exporters.registerPlugins();
/// exporters.loadAllPlugins();
///
/// exporters.enablePluginWithIdentifier(u"org.example.csv"_s);
/// auto *csv = exporters.pluginWithIdentifier<Exporter>(u"org.example.csv"_s);
/// for (const KTPlugInStatus &status : exporters.pluginStatus())
///     qInfo() << status.path << status.lastError;
/// \endcode
class KTUTILITY_EXPORT KTPlugInManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *coordinator READ coordinator WRITE setCoordinator)
    Q_PROPERTY(QString searchFolder READ searchFolder WRITE setSearchFolder)
    Q_PROPERTY(QString enabledKey READ enabledKey WRITE setEnabledKey)
    Q_PROPERTY(bool passesOverCrashed READ passesOverCrashed WRITE setPassesOverCrashed)

public:
    /// \param instanceCoordinator the host's object that every plug-in's class is handed as its
    /// update handler; may be null, and is not owned.
    explicit KTPlugInManager(QObject *instanceCoordinator = nullptr);
    /// Destroys the instances. Classes are not notified; unload plug-ins first if they must know.
    ~KTPlugInManager() override;

    // --- Settings of the manager

    /// The object that every plug-in's class is handed as its update handler; null if there is none
    /// or it was destroyed.
    QObject *coordinator() const { return _coordinator; }
    void setCoordinator(QObject *coordinator) { _coordinator = coordinator; }
    /// What principal classes should conform to; nil, as it is at first, asks nothing. A class that
    /// does not conform is logged and loaded all the same.
    const NSProtocol &protocol() const { return _protocol; }
    void setProtocol(const NSProtocol &protocol) { _protocol = protocol; }
    /// The folder in "PlugIns" that this kind of plug-in lies in; nil at first.
    const QString &searchFolder() const { return _searchFolder; }
    void setSearchFolder(const QString &searchFolder) { _searchFolder = searchFolder; }
    /// The key of the list of enabled plug-ins in the settings domain; nil at first, when nothing
    /// is enabled and nothing can be.
    const QString &enabledKey() const { return _enabledKey; }
    void setEnabledKey(const QString &enabledKey) { _enabledKey = enabledKey; }

    /// Whether loadAllPlugins() passes over plug-ins whose code ran when a program ended: by a crash,
    /// an exit, or with force. false at first, when nothing is kept about that.
    ///
    /// The name of a plug-in is kept on the disk while the manager or callPlugin() runs its code;
    /// where the program ends meanwhile, it stays there. Such a plug-in is logged under "invalid" at
    /// level 4 and has the state KTPlugInState::PassedOver until somebody loads it by its identifier
    /// or its code is replaced by another version. A program that is told to end (SIGHUP, SIGINT,
    /// SIGQUIT, SIGTERM, if it does not handle them) blames nobody.
    bool passesOverCrashed() const { return _passesOverCrashed; }
    void setPassesOverCrashed(bool passesOverCrashed) { _passesOverCrashed = passesOverCrashed; }

    // --- The settings of plug-ins: the domain "<host identifier>.plugins"

    /// The value of a key; nil if there is none.
    QVariant pluginDefaultsObjectForKey(const QString &key) const;
    /// Sets the value of a key, nil removes it, and writes the domain.
    /// \return false if the key is nil, the value is no property list, or the file cannot be read
    /// or written; the value is kept in memory if it was read and cannot be written.
    bool pluginDefaultsSetObject(const QVariant &object, const QString &forKey);
    /// Adds the keys that the domain lacks and writes it. Unlike
    /// NSUserDefaults::registerDefaults(), these values are written, and existing ones stay even if
    /// the program's change.
    /// \return as for pluginDefaultsSetObject(); nothing is added if one value is no property list.
    bool pluginDefaultsRegisterDefaults(const QVariantMap &defaults);

    // --- Finding

    /// Where plug-ins are looked for: "PlugIns" and the search folder in the user's folder of the
    /// host, in the application that contains the framework, and in the application Cobble.app
    /// that lies beside the framework. A program that has told KTApplication who it is has the
    /// folders that it gave there in place of the last two. The user's folder, but not "PlugIns" in it, is made if
    /// missing.
    QStringList searchFolders() const;
    /// Registers every "*.bundle" that lies directly in a search folder, in the order of the
    /// folders and then of the names. Later ones replace earlier ones of the same identifier, so
    /// that the application's own win.
    void registerPlugins();
    /// Registers a bundle. Without identifier or principal class it is skipped. One with the same
    /// identifier is unregistered first; if it was loaded, the new one is loaded in its place. Ends
    /// with finishedLoadingPlugins(), unless the bundle is skipped.
    void registerBundle(const NSBundle &bundle);
    /// Unloads a plug-in and forgets its bundle.
    void unregisterBundleWithIdentifier(const QString &identifier);
    /// What became of every bundle that was seen and not unregistered, in the order of the paths.
    QList<KTPlugInStatus> pluginStatus() const;

    // --- Loading. None of these touches what is enabled.

    /// Loads every plug-in that is registered and enabled, and not passed over, in the order of the
    /// identifiers, and calls finishedLoadingPlugins() once.
    void loadAllPlugins();
    /// Loads a plug-in and makes its instance, which the manager owns. One that is passed over gets
    /// another chance.
    /// \return null if it is loaded already, is not registered, or cannot be loaded or made.
    QObject *loadPluginWithIdentifier(const QString &identifier);
    /// Notifies the class of every loaded plug-in that it will be unloaded and was loaded, and
    /// calls didLoadPlugin(); the instances stay. Then finishedLoadingPlugins().
    void reloadPlugins();
    /// Destroys the instance of a plug-in and notifies its class before and after it has left the
    /// manager. The bundle stays registered. Never call it from a function of that instance.
    /// \param deleteFromDatabase is handed to willUnloadPlugin().
    void unloadPluginWithIdentifier(const QString &identifier, bool deleteFromDatabase);

    /// Runs code of the host that calls a loaded plug-in, and names the plug-in should the program
    /// end meanwhile. What the code throws is the caller's.
    ///
    /// \code
    /// exporters.callPlugin(u"org.example.csv"_s, [&] { csv->write(records); });
    /// \endcode
    void callPlugin(const QString &identifier, const std::function<void()> &code) const;
    /// Whether loadAllPlugins() would pass over the plug-in; see setPassesOverCrashed().
    bool isPluginPassedOver(const QString &identifier) const;

    /// Why a registered plug-in could not be loaded, as far as its files show it: its code is
    /// missing or incomplete, lies outside of the bundle, or can be changed by others. None of it
    /// runs for that, and loading may fail all the same. Nil if nothing is known against it, if it
    /// is loaded, or is not registered.
    QString reasonNotToLoadPlugin(const QString &identifier) const;

    /// Whether there is an instance of the plug-in.
    bool isPluginLoaded(const QString &identifier) const;
    /// The instance of a loaded plug-in; else null.
    QObject *pluginWithIdentifier(const QString &identifier) const;
    /// The same as an interface or a class; null also if it is none.
    template<typename T>
    T *pluginWithIdentifier(const QString &identifier) const
    {
        return qobject_cast<T *>(pluginWithIdentifier(identifier));
    }
    /// The instances of all loaded plug-ins.
    QList<QObject *> allLoadedPlugins() const;

    // --- Enabling

    /// Whether the list of enabled plug-ins holds the identifier.
    bool isPluginEnabled(const QString &identifier) const;
    /// Appends the identifier to the list of enabled plug-ins, even if it is there, or removes it
    /// wherever it is there.
    /// \return as for pluginDefaultsSetObject().
    bool setEnabledForPlugin(bool enabled, const QString &identifier);
    /// Loads a plug-in and, if that succeeds, adds it to the enabled ones; then
    /// finishedLoadingPlugins(). Nothing at all if it is enabled or loaded.
    void enablePluginWithIdentifier(const QString &identifier);
    /// Unloads a plug-in, its data being deleted from the database, and removes it from the enabled
    /// ones. Only if it is both enabled and loaded: one that failed to load stays enabled.
    void disablePluginWithIdentifier(const QString &identifier);

    // --- Hooks for those who inherit; they do nothing here.

    /// Plug-ins were registered, loaded, reloaded or enabled.
    virtual void finishedLoadingPlugins();
    /// A plug-in was loaded, or reloaded.
    virtual void didLoadPlugin(QObject *plugin, const NSBundle &fromBundle);
    /// A plug-in is about to be unloaded.
    /// \param deleteFromDatabase whether its data is to be removed from the database.
    virtual void willUnloadPlugin(QObject *plugin, bool deleteFromDatabase);
    /// A plug-in is about to be loaded and enabled.
    virtual void willEnablePluginWithIdentifier(const QString &identifier);
    /// A plug-in is about to be unloaded and disabled.
    virtual void willDisablePluginWithIdentifier(const QString &identifier);

private:
    struct Instance
    {
        QPointer<QObject> object;
        const NSClass *principalClass = nullptr;
    };

    KTPrivate::PlugInNote noteOf(const QString &identifier) const;
    void skipBundle(const NSBundle &bundle);
    void replaceBundle(const NSBundle &bundle, const QString &identifier);
    const NSClass *loadClass(NSBundle &bundle);
    std::unique_ptr<QObject> makeInstance(const NSBundle &bundle, const NSClass &principalClass);
    QObject *adopt(std::unique_ptr<QObject> object, const NSClass &principalClass,
                   const QString &identifier);
    void reloadPlugin(const QString &identifier);
    void notifyOfReload(NSBundle &bundle);
    QString pathOfPlugin(const QString &identifier) const;
    void setState(const QString &path, KTPlugInState state);
    void clearFailure(const QString &path);
    void keepFailure(const QString &path, const QString &error);
    void setFailure(const QString &path, const QString &error);

    QMap<QString, NSBundle> _pluginsByIdentifier;
    QMap<QString, Instance> _instancesByIdentifier;
    QPointer<QObject> _coordinator;
    NSProtocol _protocol;
    QString _searchFolder;
    QString _enabledKey;
    bool _passesOverCrashed = false;
    QMap<QString, KTPlugInStatus> _statusByPath;
};
