// Random lives of a plug-in manager beside a model: which plug-ins are registered, loaded, enabled.

#include "PlugInSupport.h"
#include "support/Properties.h"
#include "support/TestSupport.h"

#include <QFile>

#include <map>
#include <set>

using namespace Qt::StringLiterals;
using namespace plugin_support;
using namespace testing_support;

namespace {
const QString otherIdentifier = u"org.example.other"_s;
const QString unknownIdentifier = u"org.example.unknown"_s;
const QString finished = u"finishedLoadingPlugins"_s;

const QStringList &identifiers()
{
    static const QStringList all = {goodIdentifier, oddIdentifier, otherIdentifier,
                                    unknownIdentifier};
    return all;
}

/// The bundles of the tests: two plug-ins that load, one of them also in another version outside
/// the search folder, and one whose class cannot be made.
struct Bundles
{
    Bundles()
        : home(useFreshHome())
        , folder(home + u"/.local/share/Cobble/PlugIns/TestExporters")
        , good(makeGoodBundle(folder))
        , odd(makeOddBundle(folder, u"DemandingExporter"_s))
        , other(makeBundle(folder, u"Other"_s, information(otherIdentifier, u"GoodExporter"_s),
                           builtModule(u"GoodPlugIn1"_s)))
        , replacement(makeGoodBundle(home, u"Good"_s, 2))
    {
    }

    QString home, folder, good, odd, other, replacement;
};

/// What the manager should hold, and what its hooks should have been notified of, in order.
class Model
{
public:
    explicit Model(const Bundles &bundles) : _bundles(bundles) {}

    void registerBundle(const QString &identifier, const QString &path)
    {
        const bool wasLoaded = loaded.count(identifier) > 0;
        unregister(identifier);
        registered[identifier] = path;
        if (wasLoaded)
            load(identifier);
        events += finished;
    }
    void registerAll()
    {
        // In the order of the files' names: DemandingExporter, Good, Other.
        registerBundle(oddIdentifier, _bundles.odd);
        registerBundle(goodIdentifier, _bundles.good);
        registerBundle(otherIdentifier, _bundles.other);
    }
    void unregister(const QString &identifier)
    {
        if (registered.count(identifier) == 0)
            return;
        unload(identifier, false);
        registered.erase(identifier);
    }
    void load(const QString &identifier)
    {
        const bool canLoad = registered.count(identifier) > 0 && identifier != oddIdentifier;
        if (canLoad && loaded.insert(identifier).second)
            events += u"didLoadPlugin "_s + identifier;
    }
    void loadAll()
    {
        for (const auto &[identifier, path] : registered) {
            if (enabled.contains(identifier))
                load(identifier);
        }
        events += finished;
    }
    void reload()
    {
        for (const QString &identifier : loaded)
            events += u"didLoadPlugin "_s + identifier;
        events += finished;
    }
    void unload(const QString &identifier, bool deletes)
    {
        if (loaded.erase(identifier) > 0)
            events += deletes ? u"willUnloadPlugin, delete"_s : u"willUnloadPlugin, keep"_s;
    }
    void enable(const QString &identifier)
    {
        if (enabled.contains(identifier) || loaded.count(identifier) > 0)
            return;
        events += u"willEnable "_s + identifier;
        load(identifier);
        if (loaded.count(identifier) > 0)
            enabled += identifier;
        events += finished;
    }
    void disable(const QString &identifier)
    {
        if (!enabled.contains(identifier) || loaded.count(identifier) == 0)
            return;
        events += u"willDisable "_s + identifier;
        unload(identifier, true);
        enabled.removeAll(identifier);
    }
    void setEnabled(bool isEnabled, const QString &identifier)
    {
        if (isEnabled)
            enabled += identifier;
        else
            enabled.removeAll(identifier);
    }
    void restart()
    {
        registered.clear();
        loaded.clear();
        events.clear();
        registerAll();
        loadAll();
    }

    std::map<QString, QString> registered;
    std::set<QString> loaded;
    QStringList enabled;
    QStringList events;

private:
    const Bundles &_bundles;
};

/// The manager and its model, which get the same calls.
class Lives
{
public:
    explicit Lives(const Bundles &bundles) : _bundles(bundles), _model(bundles)
    {
        _manager = std::make_unique<RecordingManager>();
        _manager->pluginDefaultsSetObject({}, _manager->enabledKey());
    }

    void takeAnyStep();
    void requireAgreement();

private:
    void takeStepWith(const QString &identifier);
    void replaceOrRestart();
    QStringList hooksOfManager();

    const Bundles &_bundles;
    Model _model;
    std::unique_ptr<RecordingManager> _manager;
};

void Lives::takeAnyStep()
{
    if (someNumber(0, 3) == 0)
        replaceOrRestart();
    else
        takeStepWith(someOf(identifiers()));
}

void Lives::takeStepWith(const QString &identifier)
{
    switch (someNumber(0, 6)) {
    case 0:
    case 1:
        _manager->enablePluginWithIdentifier(identifier);
        return _model.enable(identifier);
    case 2:
        _manager->disablePluginWithIdentifier(identifier);
        return _model.disable(identifier);
    case 3: {
        const bool isEnabled = someBool();
        RC_ASSERT(_manager->setEnabledForPlugin(isEnabled, identifier));
        return _model.setEnabled(isEnabled, identifier);
    }
    case 4:
        _manager->loadPluginWithIdentifier(identifier);
        return _model.load(identifier);
    case 5: {
        const bool deletes = someBool();
        _manager->unloadPluginWithIdentifier(identifier, deletes);
        return _model.unload(identifier, deletes);
    }
    default:
        _manager->unregisterBundleWithIdentifier(identifier);
        return _model.unregister(identifier);
    }
}

void Lives::replaceOrRestart()
{
    switch (someNumber(0, 4)) {
    case 0:
        _manager->registerPlugins();
        return _model.registerAll();
    case 1:
        _manager->registerBundle(NSBundle(_bundles.replacement));
        return _model.registerBundle(goodIdentifier, _bundles.replacement);
    case 2:
        _manager->loadAllPlugins();
        return _model.loadAll();
    case 3:
        _manager->reloadPlugins();
        return _model.reload();
    default:
        _manager = std::make_unique<RecordingManager>();
        _manager->registerPlugins();
        _manager->loadAllPlugins();
        return _model.restart();
    }
}

/// The hooks of the manager alone; plug-ins write down theirs in the same list.
QStringList Lives::hooksOfManager()
{
    QStringList hooks = _manager->takeEvents();
    hooks.removeIf([](const QString &event) { return event.front().isDigit(); });
    return hooks;
}

void Lives::requireAgreement()
{
    requireSame(hooksOfManager().join(u'\n'), _model.events.join(u'\n'));
    _model.events.clear();
    for (const QString &identifier : identifiers()) {
        const bool isLoaded = _model.loaded.count(identifier) > 0;
        RC_ASSERT(_manager->isPluginLoaded(identifier) == isLoaded);
        RC_ASSERT((_manager->pluginWithIdentifier(identifier) != nullptr) == isLoaded);
        RC_ASSERT(_manager->isPluginEnabled(identifier) == _model.enabled.contains(identifier));
    }
    RC_ASSERT(size_t(_manager->allLoadedPlugins().size()) == _model.loaded.size());
    const QStringList stored =
        _manager->pluginDefaultsObjectForKey(_manager->enabledKey()).toStringList();
    requireSame(stored.join(u' '), _model.enabled.join(u' '));
    const auto *const good = _manager->pluginWithIdentifier<TestExporter>(goodIdentifier);
    if (good) {
        const bool isReplacement = _model.registered.at(goodIdentifier) == _bundles.replacement;
        RC_ASSERT(good->fileType().startsWith(isReplacement ? u"2/" : u"1/"));
    }
}
} // namespace

TEST(KTPlugInManagerModel, AnyLifeIsThatOfTheModel)
{
    const Bundles bundles;
    checkProperty("random steps of a manager", 20, [&bundles] {
        Lives lives(bundles);
        for (int step = someNumber(1, 25); step > 0; --step) {
            lives.takeAnyStep();
            lives.requireAgreement();
        }
    });
}
