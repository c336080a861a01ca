#include "PlugIns.h"

#include "Text/Reasons.h"

#include <KTUtility/NSProtocol>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
const QString ExportersKey = u"enabledExporters"_s;
const QString ImportersKey = u"enabledImporters"_s;

void prepare(KTPlugInManager &manager, const NSProtocol &protocol, const QString &searchFolder,
             const QString &enabledKey)
{
    manager.setProtocol(protocol);
    manager.setSearchFolder(searchFolder);
    manager.setEnabledKey(enabledKey);
    manager.setPassesOverCrashed(true);
    manager.registerPlugins();
}

/// Runs code of a plug-in; what it throws is its failure, not the host's.
Outcome<> outcomeOf(const std::function<void()> &code)
{
    try {
        code();
        return {};
    } catch (const std::exception &exception) {
        return Failure{QString::fromUtf8(exception.what())};
    } catch (...) {
        return Failure{Reasons::tr("it threw something that is no std::exception")};
    }
}

Outcome<> outcomeOfCall(const KTPlugInManager &manager, const QString &identifier,
                        const std::function<void()> &code)
{
    Outcome<> outcome;
    manager.callPlugin(identifier, [&] { outcome = outcomeOf(code); });
    return outcome;
}

/// The loaded plug-ins of a kind by their identifiers, in the order of these.
template<typename Interface>
QMap<QString, Interface *> loadedIn(const KTPlugInManager &manager)
{
    QMap<QString, Interface *> plugIns;
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        auto *const plugIn = manager.pluginWithIdentifier<Interface>(status.identifier);
        if (status.state == KTPlugInState::Loaded && plugIn)
            plugIns.insert(status.identifier, plugIn);
    }
    return plugIns;
}

/// The extensions that the loaded plug-ins of a kind are for; none of one that does not say.
template<typename Interface>
QMap<Interface *, QStringList> fileTypesIn(const KTPlugInManager &manager)
{
    QMap<Interface *, QStringList> types;
    const QMap<QString, Interface *> plugIns = loadedIn<Interface>(manager);
    for (auto plugIn = plugIns.begin(); plugIn != plugIns.end(); ++plugIn) {
        QStringList own;
        if (outcomeOfCall(manager, plugIn.key(), [&] { own = plugIn.value()->fileTypes(); }))
            types.insert(*plugIn, own);
    }
    return types;
}

template<typename Interface>
Interface *plugInFor(const KTPlugInManager &manager, const QString &fileType)
{
    const QMap<Interface *, QStringList> types = fileTypesIn<Interface>(manager);
    const QMap<QString, Interface *> plugIns = loadedIn<Interface>(manager);
    const auto found = std::find_if(plugIns.begin(), plugIns.end(), [&](Interface *plugIn) {
        return types.value(plugIn).contains(fileType);
    });
    return found == plugIns.end() ? nullptr : *found;
}

template<typename Interface>
Outcome<> callIn(const KTPlugInManager &manager, const Interface &plugIn,
                 const std::function<void()> &code)
{
    const QString identifier = loadedIn<Interface>(manager).key(const_cast<Interface *>(&plugIn));
    return outcomeOfCall(manager, identifier, code);
}

QString passedOverIn(const KTPlugInManager &manager)
{
    QStringList identifiers;
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        if (status.state == KTPlugInState::PassedOver && manager.isPluginEnabled(status.identifier))
            identifiers += status.identifier;
    }
    return identifiers.isEmpty() ? QString()
                                 : Reasons::tr("passed over, since a program ended while its code "
                                               "ran: %1; 'cobble plugins enable' tries it again")
                                       .arg(identifiers.join(u", "_s));
}

QString failedIn(const KTPlugInManager &manager)
{
    QStringList failed;
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        if (status.state == KTPlugInState::Failed && manager.isPluginEnabled(status.identifier))
            failed += u"%1 (%2)"_s.arg(status.identifier, status.lastError);
    }
    return failed.isEmpty() ? QString()
                            : Reasons::tr("cannot be loaded: %1").arg(failed.join(u", "_s));
}
} // namespace

PlugIns::PlugIns(Loading loading)
{
    _exporters.pluginDefaultsRegisterDefaults(
        {{ExportersKey, QVariantList{u"org.cobble.Cobble.TextExporter"_s}},
         {ImportersKey, QVariantList{u"org.cobble.Cobble.VCardImporter"_s}}});
    prepare(_exporters, NSProtocol::of<CobbleExporter>(), u"Exporters"_s, ExportersKey);
    prepare(_importers, NSProtocol::of<CobbleImporter>(), u"Importers"_s, ImportersKey);
    if (loading == Loading::None)
        return;
    _exporters.loadAllPlugins();
    _importers.loadAllPlugins();
}

CobbleExporter *PlugIns::exporterFor(const QString &fileType) const
{
    return plugInFor<CobbleExporter>(_exporters, fileType);
}

CobbleImporter *PlugIns::importerFor(const QString &fileType) const
{
    return plugInFor<CobbleImporter>(_importers, fileType);
}

QStringList PlugIns::exportedTypes() const
{
    QStringList types;
    for (const QStringList &each : fileTypesIn<CobbleExporter>(_exporters))
        types += each;
    types.sort();
    types.removeDuplicates();
    return types;
}

QString PlugIns::passedOverExporters() const
{
    return passedOverIn(_exporters);
}

QString PlugIns::failedExporters() const
{
    return failedIn(_exporters);
}

QString PlugIns::failedImporters() const
{
    return failedIn(_importers);
}

QString PlugIns::passedOverImporters() const
{
    return passedOverIn(_importers);
}

Outcome<> PlugIns::call(const CobbleExporter &exporter, const std::function<void()> &code) const
{
    return callIn(_exporters, exporter, code);
}

Outcome<> PlugIns::call(const CobbleImporter &importer, const std::function<void()> &code) const
{
    return callIn(_importers, importer, code);
}

QList<std::pair<QString, KTPlugInManager *>> PlugIns::managers()
{
    return {{u"exporter"_s, &_exporters}, {u"importer"_s, &_importers}};
}
