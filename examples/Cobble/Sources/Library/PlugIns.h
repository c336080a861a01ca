#pragma once

#include "Interfaces/CobbleExporter.h"
#include "Interfaces/CobbleImporter.h"
#include "Text/Outcome.h"

#include <KTUtility/KTPlugInManager>

#include <functional>

/// The plug-ins of the host: a manager for exporters and one for importers, with everything loaded
/// that is enabled. The plug-ins that come with the host are enabled until someone disables them.
///
/// \code
/// PlugIns plugIns;
/// CobbleExporter *exporter = plugIns.exporterFor(u"json"_s);
/// \endcode
class PlugIns
{
public:
    PlugIns();

    /// The first loaded exporter, in the order of the identifiers, that writes files with an
    /// extension; null if there is none.
    CobbleExporter *exporterFor(const QString &fileType) const;
    /// The same for importers.
    CobbleImporter *importerFor(const QString &fileType) const;
    /// The extensions that loaded exporters write, sorted.
    QStringList exportedTypes() const;

    /// The managers with what they are for, "exporter" and "importer".
    QList<std::pair<QString, KTPlugInManager *>> managers();

    /// Runs code of a plug-in, which fails if it throws something.
    static Outcome<> call(const std::function<void()> &code);

private:
    KTPlugInManager _exporters;
    KTPlugInManager _importers;
};
