#include "PlugIns.h"

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
    manager.registerPlugins();
    manager.loadAllPlugins();
}

/// The loaded plug-ins of a kind, in the order of their identifiers.
template<typename Interface>
QList<Interface *> loadedIn(const KTPlugInManager &manager)
{
    QStringList identifiers;
    const QList<KTPlugInStatus> all = manager.pluginStatus();
    for (const KTPlugInStatus &status : all) {
        if (status.state == KTPlugInState::Loaded)
            identifiers += status.identifier;
    }
    identifiers.sort();
    QList<Interface *> plugIns;
    for (const QString &identifier : std::as_const(identifiers)) {
        if (auto *const plugIn = manager.pluginWithIdentifier<Interface>(identifier))
            plugIns += plugIn;
    }
    return plugIns;
}

/// The extensions that a plug-in is for; none if it does not say.
template<typename Interface>
QStringList fileTypesOf(const Interface *plugIn)
{
    QStringList types;
    const Outcome<> called = PlugIns::call([&] { types = plugIn->fileTypes(); });
    return called ? types : QStringList();
}

template<typename Interface>
Interface *plugInFor(const KTPlugInManager &manager, const QString &fileType)
{
    const QList<Interface *> plugIns = loadedIn<Interface>(manager);
    const auto found = std::find_if(plugIns.begin(), plugIns.end(), [&](Interface *plugIn) {
        return fileTypesOf(plugIn).contains(fileType);
    });
    return found == plugIns.end() ? nullptr : *found;
}
} // namespace

PlugIns::PlugIns()
{
    _exporters.pluginDefaultsRegisterDefaults(
        {{ExportersKey, QVariantList{u"org.cobble.Cobble.TextExporter"_s}},
         {ImportersKey, QVariantList{u"org.cobble.Cobble.VCardImporter"_s}}});
    prepare(_exporters, NSProtocol::of<CobbleExporter>(), u"Exporters"_s, ExportersKey);
    prepare(_importers, NSProtocol::of<CobbleImporter>(), u"Importers"_s, ImportersKey);
}

Outcome<> PlugIns::call(const std::function<void()> &code)
{
    try {
        code();
        return {};
    } catch (const std::exception &exception) {
        return Failure{QString::fromUtf8(exception.what())};
    } catch (...) {
        return Failure{u"it threw something that is no std::exception"_s};
    }
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
    const QList<CobbleExporter *> exporters = loadedIn<CobbleExporter>(_exporters);
    for (const CobbleExporter *exporter : exporters)
        types += fileTypesOf(exporter);
    types.sort();
    types.removeDuplicates();
    return types;
}

QList<std::pair<QString, KTPlugInManager *>> PlugIns::managers()
{
    return {{u"exporter"_s, &_exporters}, {u"importer"_s, &_importers}};
}
