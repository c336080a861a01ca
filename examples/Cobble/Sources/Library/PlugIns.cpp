#include "PlugIns.h"

#include <KTUtility/NSProtocol>

#include <algorithm>

namespace {
const QString ExportersKey = QStringLiteral("enabledExporters");
const QString ImportersKey = QStringLiteral("enabledImporters");

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
    PlugIns::failureOf([&] { types = plugIn->fileTypes(); });
    return types;
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
        {{ExportersKey, QVariantList{QStringLiteral("org.cobble.Cobble.TextExporter")}},
         {ImportersKey, QVariantList{QStringLiteral("org.cobble.Cobble.VCardImporter")}}});
    prepare(_exporters, NSProtocol::of<CobbleExporter>(), QStringLiteral("Exporters"),
            ExportersKey);
    prepare(_importers, NSProtocol::of<CobbleImporter>(), QStringLiteral("Importers"),
            ImportersKey);
}

QString PlugIns::failureOf(const std::function<void()> &code)
{
    try {
        code();
        return {};
    } catch (const std::exception &exception) {
        return QString::fromUtf8(exception.what());
    } catch (...) {
        return QStringLiteral("it threw something that is no std::exception");
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
    return {{QStringLiteral("exporter"), &_exporters}, {QStringLiteral("importer"), &_importers}};
}
