#include "PlugInSupport.h"

#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>

#include <QDir>
#include <QFile>

#include <cstdio>

namespace plugin_support {
const QString goodIdentifier = QStringLiteral("org.example.good");
const QString oddIdentifier = QStringLiteral("org.example.odd");

QString builtFolder()
{
    return QStringLiteral(KTUTILITY_TEST_PLUGINS);
}

QString builtModule(const QString &name)
{
    return builtFolder() + u'/' + name + u".bundle/Contents/Linux/lib" + name + u".so";
}

QVariantMap information(const QString &identifier, const QString &principalClass)
{
    return {{QStringLiteral("CFBundleExecutable"), QStringLiteral("Code")},
            {QStringLiteral("CFBundleIdentifier"), identifier},
            {QStringLiteral("NSPrincipalClass"), principalClass}};
}

QString makeBundle(const QString &folder, const QString &name, const QVariantMap &information,
                   const QString &module)
{
    const QString bundle = folder + u'/' + name + u".bundle";
    const QString code = bundle + u"/Contents/Linux/Code";
    QDir().mkpath(bundle + u"/Contents/Linux");
    EXPECT_TRUE(NSDictionary::writeToFile(information, bundle + u"/Contents/Info.plist", true));
    if (!module.isEmpty()) {
        EXPECT_TRUE(QFile::copy(module, code + u".new")) << module.toStdString();
        EXPECT_EQ(std::rename(QFile::encodeName(code + u".new").constData(),
                              QFile::encodeName(code).constData()),
                  0);
    }
    return bundle;
}

QString makeGoodBundle(const QString &folder, const QString &name, int version)
{
    return makeBundle(folder, name, information(goodIdentifier, QStringLiteral("GoodExporter")),
                      builtModule(QStringLiteral("GoodPlugIn") + QString::number(version)));
}

QString makeOddBundle(const QString &folder, const QString &principalClass)
{
    return makeBundle(folder, principalClass.section(u':', 0, 0),
                      information(oddIdentifier, principalClass),
                      builtModule(QStringLiteral("OddPlugIns")));
}

RecordingManager::RecordingManager()
{
    setCoordinator(&_host);
    setProtocol(NSProtocol::of<TestExporter>());
    setSearchFolder(QStringLiteral("TestExporters"));
    setEnabledKey(QStringLiteral("enabledExporters"));
}

QStringList RecordingManager::events() const
{
    return _host.property("events").toStringList();
}

QStringList RecordingManager::takeEvents()
{
    const QStringList taken = events();
    _host.setProperty("events", QVariant());
    return taken;
}

void RecordingManager::finishedLoadingPlugins()
{
    addEvent(&_host, QStringLiteral("finishedLoadingPlugins"));
}

void RecordingManager::didLoadPlugin(QObject *plugin, const NSBundle &fromBundle)
{
    lastPlugin = plugin;
    lastBundlePath = fromBundle.bundlePath();
    addEvent(&_host, QStringLiteral("didLoadPlugin ") + fromBundle.bundleIdentifier());
}

void RecordingManager::willUnloadPlugin(QObject *plugin, bool deleteFromDatabase)
{
    lastPlugin = plugin;
    addEvent(&_host, deleteFromDatabase ? QStringLiteral("willUnloadPlugin, delete")
                                        : QStringLiteral("willUnloadPlugin, keep"));
}

void RecordingManager::willEnablePluginWithIdentifier(const QString &identifier)
{
    addEvent(&_host, QStringLiteral("willEnable ") + identifier);
}

void RecordingManager::willDisablePluginWithIdentifier(const QString &identifier)
{
    addEvent(&_host, QStringLiteral("willDisable ") + identifier);
}
} // namespace plugin_support
