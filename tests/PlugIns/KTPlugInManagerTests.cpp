#include <KTUtility/KTPlugInManager>

#include "PlugInSupport.h"
#include "support/TestSupport.h"

#include <KTUtility/KTLogCapture>
#include <KTUtility/NSPropertyListSerialization>

#include <QDir>
#include <QUuid>

#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
const QString finished = u"finishedLoadingPlugins"_s;

/// A manager with a search folder of its own, since the application's folders are everybody's.
class SearchingManager : public RecordingManager
{
public:
    SearchingManager()
    {
        useFreshHome();
        setSearchFolder(QUuid::createUuid().toString(QUuid::WithoutBraces));
    }
    ~SearchingManager() override
    {
        for (const QString &folder : searchFolders())
            QDir(folder).removeRecursively();
    }

    QString supportFolder() const { return searchFolders().at(0); }
    QString applicationFolder() const { return searchFolders().at(1); }
    QString neighbourFolder() const { return searchFolders().at(2); }
    QString version() const
    {
        const auto *const exporter = pluginWithIdentifier<TestExporter>(goodIdentifier);
        return exporter ? exporter->fileType().section(u'/', 0, 0) : QString();
    }
};

KTPlugInStatus statusOf(const KTPlugInManager &manager, const QString &path)
{
    for (const KTPlugInStatus &status : manager.pluginStatus()) {
        if (status.path == path)
            return status;
    }
    ADD_FAILURE() << "no status of " << path.toStdString();
    return {};
}

/// A bundle of an identifier that has the information only.
QString makeManifest(const QString &folder, const QString &name, const QString &identifier)
{
    return makeBundle(folder, name, information(identifier, u"GoodExporter"_s), QString());
}
} // namespace

TEST(KTPlugInManager, StartsEmpty)
{
    useFreshHome();
    QObject host;
    KTPlugInManager manager(&host);
    EXPECT_EQ(manager.coordinator(), &host);
    EXPECT_TRUE(manager.protocol().isNil());
    EXPECT_TRUE(manager.searchFolder().isNull());
    EXPECT_TRUE(manager.enabledKey().isNull());
    EXPECT_TRUE(manager.allLoadedPlugins().isEmpty());
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
    manager.registerPlugins();
    manager.loadAllPlugins();
    manager.reloadPlugins();
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
}

TEST(KTPlugInManager, LoadingAllOfNothingIsFinishedOnce)
{
    useFreshHome();
    RecordingManager manager;
    manager.loadAllPlugins();
    EXPECT_EQ(manager.takeEvents(), QStringList{finished});
    manager.setEnabledForPlugin(true, goodIdentifier);
    manager.loadAllPlugins();
    EXPECT_EQ(manager.takeEvents(), QStringList{finished});
}

TEST(KTPlugInManager, KeepsItsSettings)
{
    KTPlugInManager manager;
    EXPECT_EQ(manager.coordinator(), nullptr);
    {
        QObject host;
        manager.setCoordinator(&host);
        EXPECT_EQ(manager.coordinator(), &host);
    }
    EXPECT_EQ(manager.coordinator(), nullptr);
    manager.setProtocol(NSProtocol::of<TestExporter>());
    EXPECT_EQ(manager.protocol(), NSProtocol::of<TestExporter>());
    manager.setSearchFolder(u"Importers"_s);
    EXPECT_EQ(manager.property("searchFolder"), QVariant(u"Importers"_s));
    manager.setEnabledKey(u"enabled"_s);
    EXPECT_EQ(manager.property("enabledKey"), QVariant(u"enabled"_s));
}

TEST(KTPlugInManager, SearchesThreeFolders)
{
    const QString home = useFreshHome();
    KTPlugInManager manager;
    manager.setSearchFolder(u"Exporters"_s);
    const QString framework = QStringLiteral(KTUTILITY_FRAMEWORK_FOLDER);
    const QStringList expected = {
        home + u"/.local/share/Cobble/PlugIns/Exporters",
        QDir::cleanPath(framework + u"/../../PlugIns/Exporters"_s),
        QDir::cleanPath(framework + u"/../Cobble.app/Contents/PlugIns/Exporters"_s),
    };
    EXPECT_EQ(manager.searchFolders(), expected);
}

TEST(KTPlugInManager, FindsBundlesInAllFoldersAndNowhereElse)
{
    SearchingManager manager;
    manager.registerPlugins();
    EXPECT_TRUE(manager.takeEvents().isEmpty());

    makeManifest(manager.supportFolder(), u"One"_s, u"org.one"_s);
    makeManifest(manager.applicationFolder(), u"Two"_s, u"org.two"_s);
    makeManifest(manager.neighbourFolder(), u"Three"_s, u"org.three"_s);
    makeManifest(manager.supportFolder() + u"/deeper", u"Four"_s, u"org.four"_s);
    makeManifest(manager.supportFolder() + u"/..", u"Five"_s, u"org.five"_s);
    QDir(manager.supportFolder()).mkpath(u"Six.plugin"_s);
    writeFile(manager.supportFolder() + u"/Seven.bundle", "a file");

    manager.registerPlugins();
    QStringList found;
    for (const KTPlugInStatus &status : manager.pluginStatus()) {
        if (status.state == KTPlugInState::Registered)
            found += status.identifier;
    }
    found.sort();
    const QStringList expected = {u"org.one"_s, u"org.three"_s, u"org.two"_s};
    EXPECT_EQ(found, expected);
    // After each bundle that was registered.
    EXPECT_EQ(manager.takeEvents(), QStringList(3, finished));
}

TEST(KTPlugInManager, TheApplicationsOwnPlugInsWin)
{
    SearchingManager manager;
    const QString user = makeGoodBundle(manager.supportFolder(), u"Good"_s, 1);
    const QString own = makeGoodBundle(manager.applicationFolder(), u"Good"_s, 2);
    manager.registerPlugins();
    EXPECT_EQ(manager.takeEvents(), QStringList(2, finished));
    EXPECT_EQ(
        statusOf(manager, user),
        (KTPlugInStatus{user, goodIdentifier, KTPlugInState::Replaced, u"replaced by " + own}));
    EXPECT_EQ(statusOf(manager, own).state, KTPlugInState::Registered);
    ASSERT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    EXPECT_EQ(manager.version(), u"2");
    EXPECT_EQ(manager.lastBundlePath, own);
}

TEST(KTPlugInManager, AReplacedPlugInStaysLoaded)
{
    SearchingManager manager;
    const QString user = makeGoodBundle(manager.supportFolder(), u"Good"_s, 1);
    manager.registerPlugins();
    manager.loadPluginWithIdentifier(goodIdentifier);
    EXPECT_EQ(manager.version(), u"1");
    manager.takeEvents();

    const NSBundle own(makeGoodBundle(manager.applicationFolder(), u"Good"_s, 2));
    manager.registerBundle(own);
    EXPECT_EQ(manager.version(), u"2");
    const QStringList expected = {
        u"1 pluginWillUnload"_s,
        u"willUnloadPlugin, keep"_s,
        u"1 pluginDidUnload"_s,
        u"1 gone"_s,
        u"2 pluginDidLoadBundle org.example.good"_s,
        u"2 made"_s,
        u"didLoadPlugin org.example.good"_s,
        finished,
    };
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_EQ(statusOf(manager, user).state, KTPlugInState::Replaced);
    EXPECT_EQ(statusOf(manager, own.bundlePath()).state, KTPlugInState::Loaded);
}

TEST(KTPlugInManager, AReplacementThatCannotBeLoadedLeavesNone)
{
    SearchingManager manager;
    manager.registerBundle(NSBundle(makeGoodBundle(manager.supportFolder())));
    manager.loadPluginWithIdentifier(goodIdentifier);
    const QString broken = makeManifest(manager.applicationFolder(), u"Good"_s, goodIdentifier);
    manager.registerBundle(NSBundle(broken));
    EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_EQ(statusOf(manager, broken).state, KTPlugInState::Failed);
}

TEST(KTPlugInManager, ManifestsAreReadWithoutOpeningCode)
{
    SearchingManager manager;
    const QString path = makeGoodBundle(manager.supportFolder());
    const NSBundle bundle(path);
    manager.registerBundle(bundle);
    manager.registerPlugins();
    EXPECT_FALSE(bundle.isLoaded());
    EXPECT_FALSE(contentsOf(u"/proc/self/maps"_s).contains(path.toUtf8()));
}

TEST(KTPlugInManager, BundlesWithoutIdentifierOrPrincipalClassAreSkipped)
{
    SearchingManager manager;
    const QString folder = manager.supportFolder();
    const QVariantMap whole = information(goodIdentifier, u"GoodExporter"_s);
    QVariantMap unnamed = whole;
    unnamed.remove(u"CFBundleIdentifier"_s);
    QVariantMap headless = whole;
    headless.remove(u"NSPrincipalClass"_s);
    const QString module = builtModule(u"GoodPlugIn1"_s);
    makeBundle(folder, u"Headless"_s, headless, module);
    makeBundle(folder, u"Unnamed"_s, unnamed, module);
    QDir().mkpath(folder + u"/Empty.bundle");
    writeFile(folder + u"/Broken.bundle/Contents/Info.plist", "<plist><dict>");
    writeFile(folder + u"/Huge.bundle/Contents/Info.plist", QByteArray(17 << 20, ' '));
    QDir().mkpath(folder + u"/Folder.bundle/Contents/Info.plist");
    writeFile(folder + u"/lower.bundle/contents/info.plist",
              contentsOf(folder + u"/Headless.bundle/Contents/Info.plist"));

    KTLogCapture everything(kLog_invalid);
    manager.registerPlugins();
    EXPECT_TRUE(everything.messages().isEmpty());
    EXPECT_TRUE(manager.takeEvents().isEmpty());

    const QString damaged = u"Contents/Info.plist is missing, empty or damaged"_s;
    const QMap<QString, QString> expected = {{u"Broken"_s, damaged},
                                             {u"Empty"_s, damaged},
                                             {u"Folder"_s, damaged},
                                             {u"Huge"_s, damaged},
                                             {u"lower"_s, damaged},
                                             {u"Headless"_s, u"NSPrincipalClass is missing"_s},
                                             {u"Unnamed"_s, u"CFBundleIdentifier is missing"_s}};
    ASSERT_EQ(manager.pluginStatus().size(), expected.size());
    for (auto row = expected.begin(); row != expected.end(); ++row) {
        const KTPlugInStatus status = statusOf(manager, folder + u'/' + row.key() + u".bundle"_s);
        EXPECT_EQ(status.state, KTPlugInState::Skipped);
        EXPECT_EQ(status.lastError, row.value());
    }
}

TEST(KTPlugInManager, CodeThatOthersMayWriteIsRejectedAndSaysSo)
{
    SearchingManager manager;
    const QString path = makeGoodBundle(manager.supportFolder());
    const QString module = path + u"/Contents/Linux/Code";
    ASSERT_EQ(::chmod(QFile::encodeName(module).constData(), 0666), 0);
    manager.registerPlugins();
    KTLogCapture capture(kLog_invalid, 4);
    EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    const QString reason = module + u" is writable by others";
    EXPECT_EQ(statusOf(manager, path),
              (KTPlugInStatus{path, goodIdentifier, KTPlugInState::Failed, reason}));
    EXPECT_EQ(capture.messages().value(0), u"Plug-in " + path + u": " + reason);

    // What was mended is loaded.
    ASSERT_EQ(::chmod(QFile::encodeName(module).constData(), 0644), 0);
    EXPECT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    EXPECT_TRUE(statusOf(manager, path).lastError.isNull());
}

TEST(KTPlugInManager, UnregisteringUnloadsAndForgets)
{
    SearchingManager manager;
    const NSBundle bundle(makeGoodBundle(manager.supportFolder()));
    manager.registerBundle(bundle);
    manager.loadPluginWithIdentifier(goodIdentifier);
    manager.takeEvents();
    manager.unregisterBundleWithIdentifier(goodIdentifier);
    const QStringList expected = {u"1 pluginWillUnload"_s, u"willUnloadPlugin, keep"_s,
                                  u"1 pluginDidUnload"_s, u"1 gone"_s};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_FALSE(bundle.isLoaded());
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
    EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    manager.unregisterBundleWithIdentifier(goodIdentifier);
    EXPECT_TRUE(manager.takeEvents().isEmpty());
}

TEST(KTPlugInManager, EnabledPlugInsAreLoadedInTheOrderOfTheirIdentifiers)
{
    SearchingManager manager;
    // Capitals come before small letters; the order of the files is another one.
    const QList<std::pair<QString, QString>> bundles = {
        {u"1"_s, u"b"_s}, {u"2"_s, u"B"_s}, {u"3"_s, u"a"_s}, {u"4"_s, u"é"_s}, {u"5"_s, u"c"_s}};
    for (const auto &[name, identifier] : bundles) {
        makeBundle(manager.supportFolder(), name, information(identifier, u"GoodExporter"_s),
                   builtModule(u"GoodPlugIn1"_s));
        if (identifier != u"c")
            manager.setEnabledForPlugin(true, identifier);
    }
    manager.setEnabledForPlugin(true, u"not there"_s);
    manager.registerPlugins();
    manager.takeEvents();
    manager.loadAllPlugins();
    QStringList expected;
    for (const char16_t *identifier : {u"B", u"a", u"b", u"é"}) {
        expected += u"1 pluginDidLoadBundle " + QString::fromUtf16(identifier);
        expected += u"1 made"_s;
        expected += u"didLoadPlugin " + QString::fromUtf16(identifier);
    }
    EXPECT_EQ(manager.takeEvents(), expected << finished);
    EXPECT_EQ(manager.allLoadedPlugins().size(), 4);
    // Once more: all are loaded.
    manager.loadAllPlugins();
    EXPECT_EQ(manager.takeEvents(), QStringList{finished});
}

TEST(KTPlugInManager, EnablingLoadsAndKeeps)
{
    SearchingManager manager;
    makeGoodBundle(manager.supportFolder());
    manager.registerPlugins();
    manager.takeEvents();
    manager.enablePluginWithIdentifier(goodIdentifier);
    const QStringList expected = {u"willEnable org.example.good"_s,
                                  u"1 pluginDidLoadBundle org.example.good"_s, u"1 made"_s,
                                  u"didLoadPlugin org.example.good"_s, finished};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_TRUE(manager.isPluginEnabled(goodIdentifier));

    // Enabled already: nothing at all; nor for one that is loaded or enabled only.
    manager.enablePluginWithIdentifier(goodIdentifier);
    manager.setEnabledForPlugin(false, goodIdentifier);
    manager.enablePluginWithIdentifier(goodIdentifier);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    manager.unloadPluginWithIdentifier(goodIdentifier, false);
    manager.setEnabledForPlugin(true, goodIdentifier);
    manager.takeEvents();
    manager.enablePluginWithIdentifier(goodIdentifier);
    EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_TRUE(manager.takeEvents().isEmpty());
}

TEST(KTPlugInManager, EnablingSurvivesARestart)
{
    SearchingManager first;
    makeGoodBundle(first.supportFolder());
    first.registerPlugins();
    first.enablePluginWithIdentifier(goodIdentifier);

    RecordingManager second;
    second.setSearchFolder(first.searchFolder());
    second.registerPlugins();
    second.loadAllPlugins();
    EXPECT_TRUE(second.isPluginLoaded(goodIdentifier));
}

TEST(KTPlugInManager, EnablingWhatCannotBeMadeLeavesItDisabled)
{
    SearchingManager manager;
    makeOddBundle(manager.supportFolder(), u"ThrowingExporter"_s);
    manager.registerPlugins();
    manager.takeEvents();
    manager.enablePluginWithIdentifier(oddIdentifier);
    const QStringList expected = {u"willEnable org.example.odd"_s, finished};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_FALSE(manager.isPluginEnabled(oddIdentifier));
    manager.enablePluginWithIdentifier(u"unknown"_s);
    EXPECT_FALSE(manager.isPluginEnabled(u"unknown"_s));
}

TEST(KTPlugInManager, DisablingUnloadsWithTheData)
{
    SearchingManager manager;
    makeGoodBundle(manager.supportFolder());
    manager.registerPlugins();
    manager.enablePluginWithIdentifier(goodIdentifier);
    manager.takeEvents();
    manager.disablePluginWithIdentifier(goodIdentifier);
    const QStringList expected = {u"willDisable org.example.good"_s, u"1 pluginWillUnload"_s,
                                  u"willUnloadPlugin, delete"_s, u"1 pluginDidUnload"_s,
                                  u"1 gone"_s};
    EXPECT_EQ(manager.takeEvents(), expected);
    EXPECT_FALSE(manager.isPluginEnabled(goodIdentifier));
    manager.disablePluginWithIdentifier(goodIdentifier);
    EXPECT_TRUE(manager.takeEvents().isEmpty());
}

TEST(KTPlugInManager, DisablingWantsBothEnabledAndLoaded)
{
    SearchingManager manager;
    makeOddBundle(manager.supportFolder(), u"ThrowingExporter"_s);
    makeGoodBundle(manager.supportFolder());
    manager.setEnabledForPlugin(true, oddIdentifier);
    manager.registerPlugins();
    manager.loadAllPlugins();
    manager.loadPluginWithIdentifier(goodIdentifier);
    manager.takeEvents();
    // Deliberate: what failed to load stays enabled.
    manager.disablePluginWithIdentifier(oddIdentifier);
    EXPECT_TRUE(manager.isPluginEnabled(oddIdentifier));
    manager.disablePluginWithIdentifier(goodIdentifier);
    EXPECT_TRUE(manager.isPluginLoaded(goodIdentifier));
    EXPECT_TRUE(manager.takeEvents().isEmpty());
}

TEST(KTPlugInManager, SearchFoldersMayBeAnything)
{
    useFreshHome();
    RecordingManager manager;
    for (const QString &name : hostileTexts()) {
        manager.setSearchFolder(u"no such folder" + name);
        EXPECT_EQ(manager.searchFolders().size(), 3);
        manager.registerPlugins();
    }
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
}

TEST(KTPlugInManager, AFolderThatIsAFileHoldsNone)
{
    SearchingManager manager;
    writeFile(manager.supportFolder(), "a file");
    manager.registerPlugins();
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
    QFile::remove(manager.supportFolder());
}

TEST(KTPlugInManager, TheBaseHooksDoNothing)
{
    KTPlugInManager manager;
    manager.setEnabledKey(u"enabled"_s);
    const QString path = makeGoodBundle(useFreshHome());
    manager.registerBundle(NSBundle(path));
    manager.enablePluginWithIdentifier(goodIdentifier);
    EXPECT_TRUE(manager.isPluginLoaded(goodIdentifier));
    manager.reloadPlugins();
    manager.disablePluginWithIdentifier(goodIdentifier);
    EXPECT_FALSE(manager.isPluginLoaded(goodIdentifier));
}

TEST(KTPlugInManager, AFolderThatHoldsAnotherPlugInNowKeepsItsStatus)
{
    const QString folder = useFreshHome();
    RecordingManager manager;
    const QString path = makeManifest(folder, u"Renamed"_s, u"org.before"_s);
    manager.registerBundle(NSBundle(path));
    makeManifest(folder, u"Renamed"_s, u"org.after"_s);
    manager.registerBundle(NSBundle(path));
    manager.unregisterBundleWithIdentifier(u"org.before"_s);
    EXPECT_EQ(statusOf(manager, path).identifier, u"org.after"_s);
}

// The example of the header, with a host that is a plain object.
TEST(KTPlugInManager, IsUsedLikeThis)
{
    SearchingManager folders;
    makeGoodBundle(folders.supportFolder());
    makeOddBundle(folders.applicationFolder(), u"ThrowingExporter"_s);

    QObject application;
    KTPlugInManager exporters(&application);
    exporters.setProtocol(NSProtocol::of<TestExporter>());
    exporters.setSearchFolder(folders.searchFolder());
    exporters.setEnabledKey(u"enabledExporters"_s);
    exporters.registerPlugins();
    exporters.loadAllPlugins();

    exporters.enablePluginWithIdentifier(goodIdentifier);
    exporters.enablePluginWithIdentifier(oddIdentifier);
    auto *good = exporters.pluginWithIdentifier<TestExporter>(goodIdentifier);
    ASSERT_NE(good, nullptr);
    EXPECT_TRUE(good->fileType().startsWith(u"1/"));
    QStringList errors;
    for (const KTPlugInStatus &status : exporters.pluginStatus())
        errors += status.lastError;
    errors.sort();
    EXPECT_EQ(errors, (QStringList{QString(), u"ThrowingExporter threw no licence"_s}));
}

namespace {
/// Hooks that call the manager back.
class BusyManager : public RecordingManager
{
public:
    void didLoadPlugin(QObject *, const NSBundle &) override
    {
        if (unregisters)
            unregisterBundleWithIdentifier(goodIdentifier);
    }
    void willUnloadPlugin(QObject *, bool) override
    {
        if (deletes)
            delete pluginWithIdentifier(goodIdentifier);
    }

    bool unregisters = false;
    bool deletes = false;
};
} // namespace

TEST(KTPlugInManager, HooksMayCallTheManager)
{
    const QString path = makeGoodBundle(useFreshHome());
    BusyManager manager;
    manager.registerBundle(NSBundle(path));
    manager.unregisters = true;
    EXPECT_EQ(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    EXPECT_TRUE(manager.pluginStatus().isEmpty());

    manager.unregisters = false;
    manager.deletes = true;
    manager.registerBundle(NSBundle(path));
    EXPECT_NE(manager.loadPluginWithIdentifier(goodIdentifier), nullptr);
    manager.unregisters = true;
    manager.reloadPlugins();
    EXPECT_TRUE(manager.pluginStatus().isEmpty());
    EXPECT_TRUE(manager.allLoadedPlugins().isEmpty());
}
