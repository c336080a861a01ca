#include <KTUtility/KTPlugInManager>

#include "PlugInSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>

#include <QDir>
#include <QFile>

#include <functional>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
KTPlugInStatus onlyStatus(const KTPlugInManager &manager)
{
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    EXPECT_EQ(all.size(), 1);
    return all.value(0);
}

/// A manager with a bundle that is registered, and nothing recorded.
void registerOnly(RecordingManager &manager, const QString &bundle)
{
    manager.registerBundle(NSBundle(bundle));
    manager.takeEvents();
}
} // namespace

TEST(KTPlugInManagerLoading, APlugInIsLoadedInOrder)
{
    const QString bundle = makeGoodBundle(useFreshHome());
    RecordingManager manager;
    registerOnly(manager, bundle);
    EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Registered);

    QObject *const plugin = manager.loadPluginWithIdentifier(goodIdentifier);
    ASSERT_NE(plugin, nullptr);
    const QStringList expected = {u"1 pluginDidLoadBundle org.example.good"_s, u"1 made"_s,
                                  u"didLoadPlugin org.example.good"_s};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_EQ(manager.lastPlugin, plugin);
    EXPECT_EQ(manager.lastBundlePath, bundle);
    EXPECT_TRUE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_EQ(manager.pluginWithIdentifier(goodIdentifier), plugin);
    EXPECT_EQ(manager.allLoadedPlugins(), QList<QObject *>{plugin});
    EXPECT_EQ(onlyStatus(manager),
              (KTPlugInStatus{bundle, goodIdentifier, KTPlugInState::Loaded, QString()}));
    // Loading is not enabling.
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
}

TEST(KTPlugInManagerLoading, APlugInIsReachedAsWhatItPromises)
{
    RecordingManager manager;
    registerOnly(manager, makeGoodBundle(useFreshHome()));
    EXPECT_EQ(manager.pluginWithIdentifier<TestExporter>(goodIdentifier), nullptr);
    manager.loadPluginWithIdentifier(goodIdentifier);
    auto *const exporter = manager.pluginWithIdentifier<TestExporter>(goodIdentifier);
    ASSERT_NE(exporter, nullptr);
    EXPECT_TRUE(exporter->fileType().startsWith(u"1/"));
    EXPECT_EQ(manager.pluginWithIdentifier<TestImporter>(goodIdentifier), nullptr);
}

TEST(KTPlugInManagerLoading, LoadingALoadedPlugInGivesNilAndLeavesIt)
{
    RecordingManager manager;
    registerOnly(manager, makeGoodBundle(useFreshHome()));
    QObject *const plugin = manager.loadPluginWithIdentifier(goodIdentifier);
    manager.takeEvents();
    EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    EXPECT_EQ(manager.pluginWithIdentifier(goodIdentifier), plugin);
    EXPECT_TRUE(manager.takeEvents().isEmpty());
}

TEST(KTPlugInManagerLoading, WhatIsNotRegisteredIsNotLoaded)
{
    useFreshHome();
    RecordingManager manager;
    for (const QString &identifier : hostileTexts()) {
        EXPECT_EQ(manager.loadPluginWithIdentifier(identifier), nullptr);
        EXPECT_EQ(manager.pluginWithIdentifier(identifier), nullptr);
        EXPECT_FALSE(manager.isPluginLoaded(identifier));
        manager.unloadPluginWithIdentifier(identifier, true);
        manager.unregisterBundleWithIdentifier(identifier);
    }
    EXPECT_TRUE(manager.takeEvents().isEmpty());
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
}

TEST(KTPlugInManagerLoading, AClassThatDoesNotConformIsLoggedAndLoadedAllTheSame)
{
    RecordingManager manager;
    registerOnly(manager, makeOddBundle(useFreshHome(), u"NonconformingExporter"_s));
    KTLogCapture capture(kLog_invalid, 4);
    EXPECT_NE(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);

    const QList<KTLogCapture::Entry> entries = capture.entries();
    ASSERT_EQ(entries.size(), 1);
    const KTLogCapture::Entry &warning = entries.first();
    EXPECT_EQ(warning.message, u"Plug-in does not conform to org.cobble.tests.Exporter"_s);
    EXPECT_EQ(warning.component, u"invalid"_s);
    EXPECT_EQ(warning.level, 4);
    EXPECT_EQ(warning.file, u"KTPlugInManager"_s);
    EXPECT_EQ(warning.lineNumber, 150);
    const QStringList expected = {u"nonconforming did load"_s, u"didLoadPlugin org.example.odd"_s};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Loaded);
    EXPECT_EQ(onlyStatus(manager).lastError, u"does not conform to org.cobble.tests.Exporter"_s);
}

TEST(KTPlugInManagerLoading, WithoutAProtocolNothingIsTested)
{
    RecordingManager manager;
    manager.setProtocol(NSProtocol());
    registerOnly(manager, makeOddBundle(useFreshHome(), u"NonconformingExporter"_s));
    KTLogCapture capture(kLog_invalid);
    EXPECT_NE(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
    EXPECT_TRUE(capture.messages().isEmpty());
    EXPECT_TRUE(onlyStatus(manager).lastError.isNull());
}

TEST(KTPlugInManagerLoading, TheWordAboutLoadingIsOptional)
{
    for (const char16_t *name : {u"QuietExporter", u"Acme::Exporter", u"BareExporter"}) {
        RecordingManager manager;
        registerOnly(manager, makeOddBundle(useFreshHome(), QString::fromUtf16(name)));
        EXPECT_NE(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
        EXPECT_TRUE(onlyStatus(manager).lastError.isNull());
        manager.unloadPluginWithIdentifier(oddIdentifier, false);
        EXPECT_TRUE(onlyStatus(manager).lastError.isNull());
    }
}

TEST(KTPlugInManagerLoading, AClassThatCannotBeMadeLeavesThePlugInUnloaded)
{
    const QList<std::pair<QString, QString>> rows = {
        {u"ThrowingExporter"_s, u"threw no licence"_s},
        {u"RaisingExporter"_s, u"threw NSRangeException: too far"_s},
        {u"ThrowingNumbersExporter"_s, u"threw something that is no std::exception"_s},
        {u"DemandingExporter"_s, u"cannot be made"_s},
    };
    for (const auto &[name, reason] : rows) {
        const QString bundle = makeOddBundle(useFreshHome(), name);
        RecordingManager manager;
        registerOnly(manager, bundle);
        KTLogCapture capture(kLog_invalid, 4);
        EXPECT_EQ(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
        EXPECT_FALSE(manager.isPluginLoaded(oddIdentifier));
        EXPECT_TRUE(manager.allLoadedPlugins().isEmpty());
        EXPECT_TRUE(manager.takeEvents().isEmpty());
        const QString error = name + u' ' + reason;
        EXPECT_EQ(onlyStatus(manager),
                  (KTPlugInStatus{bundle, oddIdentifier, KTPlugInState::Failed, error}));
        // The platform would not have said anything about one that merely makes nothing.
        EXPECT_EQ(capture.messages(), reason == u"cannot be made"
                                          ? QStringList()
                                          : QStringList{u"Plug-in " + bundle + u": " + error});
    }
}

TEST(KTPlugInManagerLoading, AFailureTakesNoOtherPlugInWithIt)
{
    const QString folder = useFreshHome();
    RecordingManager manager;
    manager.registerBundle(NSBundle(makeOddBundle(folder, u"ThrowingExporter"_s)));
    manager.registerBundle(NSBundle(makeGoodBundle(folder)));
    manager.setEnabledForPlugin(true, oddIdentifier);
    manager.setEnabledForPlugin(true, goodIdentifier);
    manager.loadAllPlugins();
    EXPECT_FALSE(manager.isPluginLoaded(oddIdentifier));
    EXPECT_TRUE(manager.isPluginLoaded(goodIdentifier));
}

TEST(KTPlugInManagerLoading, UnloadingTellsTheClassBeforeAndAfter)
{
    RecordingManager manager;
    registerOnly(manager, makeGoodBundle(useFreshHome()));
    for (const bool deletes : {true, false}) {
        const QPointer<QObject> plugin = manager.loadPluginWithIdentifier(goodIdentifier);
        manager.takeEvents();
        manager.unloadPluginWithIdentifier(goodIdentifier, deletes);
        const QStringList expected = {
            u"1 pluginWillUnload"_s,
            deletes ? u"willUnloadPlugin, delete"_s : u"willUnloadPlugin, keep"_s,
            u"1 pluginDidUnload"_s,
            u"1 gone"_s,
        };
        EXPECT_EQ(manager.takeEvents(), expected);
        EXPECT_TRUE(plugin.isNull());
        EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
        EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Registered);
        manager.unloadPluginWithIdentifier(goodIdentifier, deletes);
        EXPECT_TRUE(manager.takeEvents().isEmpty());
    }
}

TEST(KTPlugInManagerLoading, UnloadingKeepsTheCodeLoaded)
{
    const NSBundle bundle(makeGoodBundle(useFreshHome()));
    RecordingManager manager;
    manager.registerBundle(bundle);
    EXPECT_FALSE(bundle.isLoaded());
    manager.loadPluginWithIdentifier(goodIdentifier);
    EXPECT_TRUE(bundle.isLoaded());
    manager.unloadPluginWithIdentifier(goodIdentifier, false);
    EXPECT_TRUE(bundle.isLoaded());
    manager.unregisterBundleWithIdentifier(goodIdentifier);
    EXPECT_FALSE(bundle.isLoaded());
}

TEST(KTPlugInManagerLoading, ReloadingTellsTheClassAndKeepsTheInstance)
{
    RecordingManager manager;
    registerOnly(manager, makeGoodBundle(useFreshHome()));
    manager.reloadPlugins();
    EXPECT_EQ(manager.takeEvents(), QStringList{u"finishedLoadingPlugins"_s});

    QObject *const plugin = manager.loadPluginWithIdentifier(goodIdentifier);
    manager.takeEvents();
    manager.reloadPlugins();
    const QStringList expected = {u"1 pluginWillUnload"_s,
                                  u"1 pluginDidLoadBundle org.example.good"_s,
                                  u"didLoadPlugin org.example.good"_s, u"finishedLoadingPlugins"_s};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_EQ(manager.lastPlugin, plugin);
    EXPECT_EQ(manager.pluginWithIdentifier(goodIdentifier), plugin);
}

TEST(KTPlugInManagerLoading, ReloadingAsksForTheWordThatIsOptionalOtherwise)
{
    for (const char16_t *name : {u"QuietExporter", u"BareExporter"}) {
        RecordingManager manager;
        registerOnly(manager, makeOddBundle(useFreshHome(), QString::fromUtf16(name)));
        QObject *const plugin = manager.loadPluginWithIdentifier(oddIdentifier);
        manager.takeEvents();
        KTLogCapture capture(kLog_invalid);
        manager.reloadPlugins();
        EXPECT_TRUE(capture.messages().isEmpty());
        const QStringList expected = {u"didLoadPlugin org.example.odd"_s,
                                      u"finishedLoadingPlugins"_s};
        EXPECT_EQ(manager.takeEvents(), expected);
        EXPECT_EQ(manager.pluginWithIdentifier(oddIdentifier), plugin);
        EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Loaded);
        EXPECT_EQ(onlyStatus(manager).lastError,
                  QString::fromUtf16(name) +
                      u" does not answer pluginDidLoadBundle:updateHandler:"_s);
    }
}

TEST(KTPlugInManagerLoading, AClassThatThrowsWhenItIsToldSomethingIsContained)
{
    RecordingManager manager;
    registerOnly(manager, makeOddBundle(useFreshHome(), u"NervousExporter"_s));
    manager.coordinator()->setProperty("nervous", true);
    EXPECT_EQ(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
    EXPECT_EQ(onlyStatus(manager).lastError, u"NervousExporter threw not now"_s);

    manager.coordinator()->setProperty("nervous", false);
    EXPECT_NE(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
    EXPECT_TRUE(onlyStatus(manager).lastError.isNull());
    manager.coordinator()->setProperty("nervous", true);
    manager.reloadPlugins();
    EXPECT_TRUE(manager.isPluginLoaded(oddIdentifier));
    EXPECT_EQ(onlyStatus(manager).lastError, u"pluginDidLoadBundle threw not now"_s);

    KTLogCapture capture(kLog_invalid, 4);
    manager.unloadPluginWithIdentifier(oddIdentifier, false);
    EXPECT_FALSE(manager.isPluginLoaded(oddIdentifier));
    EXPECT_EQ(capture.messages().size(), 2);
    EXPECT_EQ(onlyStatus(manager).lastError, u"NervousExporter threw not ever"_s);
}

TEST(KTPlugInManagerLoading, WithoutACoordinatorClassesAreHandedNone)
{
    RecordingManager manager;
    manager.setCoordinator(nullptr);
    EXPECT_EQ(manager.coordinator(), nullptr);
    registerOnly(manager, makeOddBundle(useFreshHome(), u"NervousExporter"_s));
    EXPECT_EQ(manager.loadPluginWithIdentifier(oddIdentifier), nullptr);
}

TEST(KTPlugInManagerLoading, AnInstanceThatSomebodyDestroyedIsNotLoaded)
{
    RecordingManager manager;
    registerOnly(manager, makeGoodBundle(useFreshHome()));
    delete manager.loadPluginWithIdentifier(goodIdentifier);
    EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_TRUE(manager.allLoadedPlugins().isEmpty());
    EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Registered);
    manager.takeEvents();
    manager.reloadPlugins();
    manager.unloadPluginWithIdentifier(goodIdentifier, false);
    EXPECT_EQ(manager.takeEvents(), QStringList{u"finishedLoadingPlugins"_s});
    EXPECT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
}

TEST(KTPlugInManagerLoading, TheManagerTakesItsInstancesAlong)
{
    QPointer<QObject> plugin;
    QObject host;
    {
        RecordingManager manager;
        manager.setCoordinator(&host);
        registerOnly(manager, makeGoodBundle(useFreshHome()));
        plugin = manager.loadPluginWithIdentifier(goodIdentifier);
    }
    EXPECT_TRUE(plugin.isNull());
    EXPECT_EQ(host.property("events").toStringList().last(), u"1 gone"_s);
    EXPECT_FALSE(host.property("events").toStringList().contains(u"1 pluginWillUnload"_s));
}

TEST(KTPlugInManagerLoading, WhatTheFilesShowIsKnownWithoutLoading)
{
    const QString home = useFreshHome();
    const QString bundle = makeGoodBundle(home);
    const QString code = NSBundle(bundle).executablePath();
    RecordingManager manager;
    registerOnly(manager, bundle);
    EXPECT_EQ(manager.reasonNotToLoadPlugin(goodIdentifier), QString());
    EXPECT_EQ(manager.reasonNotToLoadPlugin(oddIdentifier), QString());
    EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Registered);

    const QByteArray module = contentsOf(code);
    const std::function<void()> changes[] = {
        [&] { QFile::setPermissions(code, QFile::permissions(code) | QFile::WriteOther); },
        [&] { QFile::setPermissions(bundle, QFile::permissions(bundle) | QFile::WriteOther); },
        [&] { writeFile(code, module.first(module.size() / 2)); },
        [&] { QFile::remove(code); },
    };
    for (const auto &change : changes) {
        change();
        const QString reason = manager.reasonNotToLoadPlugin(goodIdentifier);
        EXPECT_FALSE(reason.isNull());
        EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
        EXPECT_EQ(onlyStatus(manager).lastError, reason);
        QDir(bundle).removeRecursively();
        makeGoodBundle(home);
        EXPECT_EQ(manager.reasonNotToLoadPlugin(goodIdentifier), QString());
    }
    ASSERT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    QFile::remove(code);
    EXPECT_EQ(manager.reasonNotToLoadPlugin(goodIdentifier), QString()) << "it is loaded";
}

TEST(KTPlugInManagerLoading, APlugInThatCannotBeLoadedSaysWhy)
{
    struct Row
    {
        QString principalClass;
        QString module;
        QString error;
    };
    const QString text = useFreshHome() + u"/text.so"_s;
    writeFile(text, "no code at all");
    const QList<Row> rows = {
        {u"GoodExporter"_s, QString(), u"there is no executable in "_s},
        {u"GoodExporter"_s, text, u"file too short"_s},
        {u"NoSuchExporter"_s, builtModule(u"GoodPlugIn1"_s),
         u"registers no class NoSuchExporter"_s},
    };
    for (const Row &row : rows) {
        const QString bundle = makeBundle(
            useFreshHome(), u"Bad"_s, information(goodIdentifier, row.principalClass), row.module);
        RecordingManager manager;
        registerOnly(manager, bundle);
        KTLogCapture capture(kLog_invalid, 4);
        EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
        EXPECT_EQ(onlyStatus(manager).state, KTPlugInState::Failed);
        const QString error = onlyStatus(manager).lastError;
        EXPECT_TRUE(error.contains(row.error)) << error.toStdString();
        EXPECT_TRUE(error.contains(bundle)) << error.toStdString();
        // Nothing conforms to nothing.
        const QStringList expected = {u"Plug-in " + bundle + u": " + error,
                                      u"Plug-in does not conform to org.cobble.tests.Exporter"_s};
        EXPECT_EQ(capture.messages(), expected);
        EXPECT_TRUE(manager.takeEvents().isEmpty());
    }
}
