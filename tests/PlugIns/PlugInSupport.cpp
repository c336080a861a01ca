#include "PlugInSupport.h"

#include "support/TestSupport.h"

#include <KTUtility/NSPropertyListSerialization>

#include <QDir>
#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace plugin_support {
const QString goodIdentifier = u"org.example.good"_s;
const QString oddIdentifier = u"org.example.odd"_s;

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
    return {{u"CFBundleExecutable"_s, u"Code"_s},
            {u"CFBundleIdentifier"_s, identifier},
            {u"NSPrincipalClass"_s, principalClass}};
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
    return makeBundle(folder, name, information(goodIdentifier, u"GoodExporter"_s),
                      builtModule(u"GoodPlugIn"_s + QString::number(version)));
}

QString makeOddBundle(const QString &folder, const QString &principalClass)
{
    return makeBundle(folder, principalClass.section(u':', 0, 0),
                      information(oddIdentifier, principalClass), builtModule(u"OddPlugIns"_s));
}

RecordingManager::RecordingManager()
{
    setCoordinator(&_host);
    setProtocol(NSProtocol::of<TestExporter>());
    setSearchFolder(u"TestExporters"_s);
    setEnabledKey(u"enabledExporters"_s);
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
    addEvent(&_host, u"finishedLoadingPlugins"_s);
}

void RecordingManager::didLoadPlugin(QObject *plugin, const NSBundle &fromBundle)
{
    lastPlugin = plugin;
    lastBundlePath = fromBundle.bundlePath();
    addEvent(&_host, u"didLoadPlugin "_s + fromBundle.bundleIdentifier());
}

void RecordingManager::willUnloadPlugin(QObject *plugin, bool deleteFromDatabase)
{
    lastPlugin = plugin;
    addEvent(&_host,
             deleteFromDatabase ? u"willUnloadPlugin, delete"_s : u"willUnloadPlugin, keep"_s);
}

void RecordingManager::willEnablePluginWithIdentifier(const QString &identifier)
{
    addEvent(&_host, u"willEnable "_s + identifier);
}

void RecordingManager::willDisablePluginWithIdentifier(const QString &identifier)
{
    addEvent(&_host, u"willDisable "_s + identifier);
}
} // namespace plugin_support
