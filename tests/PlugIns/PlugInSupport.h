#pragma once

#include "PlugIns/Modules/TestExporter.h"

#include <KTUtility/KTPlugInManager>

#include <QVariantMap>

// What the tests of plug-ins share: bundles made of the modules that are built beside the tests.

namespace plugin_support {
/// The folder of the bundles that the build makes: GoodPlugIn1, GoodPlugIn2, OddPlugIns,
/// EmptyPlugIn.
QString builtFolder();
/// The module of one of them.
QString builtModule(const QString &name);

/// The information of a plug-in whose executable is "Code".
QVariantMap information(const QString &identifier, const QString &principalClass);
/// Makes folder/name.bundle from the information and a copy of a module; without a module if its
/// path is empty. What was there is replaced as an installer would: by renaming.
/// \return the path of the bundle.
QString makeBundle(const QString &folder, const QString &name, const QVariantMap &information,
                   const QString &module);
/// A bundle of GoodPlugIn, version 1 or 2, identifier "org.example.good".
QString makeGoodBundle(const QString &folder, const QString &name = QStringLiteral("Good"),
                       int version = 1);
/// A bundle of a class of OddPlugIns, identifier "org.example.odd".
QString makeOddBundle(const QString &folder, const QString &principalClass);

/// Keeps its own hooks and the reports of plug-ins in the "events" of its coordinator.
class RecordingManager : public KTPlugInManager
{
public:
    /// With the protocol TestExporter, a search folder and an enabled key.
    RecordingManager();

    QStringList events() const;
    /// The events since the last call.
    QStringList takeEvents();
    void finishedLoadingPlugins() override;
    void didLoadPlugin(QObject *plugin, const NSBundle &fromBundle) override;
    void willUnloadPlugin(QObject *plugin, bool deleteFromDatabase) override;
    void willEnablePluginWithIdentifier(const QString &identifier) override;
    void willDisablePluginWithIdentifier(const QString &identifier) override;

    /// What the last events of a kind were about.
    QPointer<QObject> lastPlugin;
    QString lastBundlePath;

private:
    QObject _host;
};

/// "org.example.good" and "org.example.odd".
extern const QString goodIdentifier;
extern const QString oddIdentifier;
} // namespace plugin_support
