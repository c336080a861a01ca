#pragma once

#include "Interfaces/CobbleExporter.h"
#include "Interfaces/CobbleImporter.h"
#include "Text/Outcome.h"

#include <KTUtility/KTPlugInManager>

#include <functional>

/// The plug-ins of the host: a manager for exporters and one for importers, with everything loaded
/// that is enabled. The plug-ins that come with the host are enabled until someone disables them.
/// One whose code ran when the program ended is passed over; see KTPlugInManager.
///
/// \code
/// PlugIns plugIns;
/// CobbleExporter *exporter = plugIns.exporterFor(u"json"_s);
/// plugIns.call(*exporter, [&] { use(*exporter); });
/// \endcode
class PlugIns
{
public:
    /// What is loaded at first. Without any code, the list of plug-ins can be read and changed even
    /// where one of them ends the program.
    enum class Loading { Enabled, None };
    explicit PlugIns(Loading loading = Loading::Enabled);

    /// The first loaded exporter, in the order of the identifiers, that writes files with an
    /// extension; null if there is none.
    CobbleExporter *exporterFor(const QString &fileType) const;
    /// The same for importers.
    CobbleImporter *importerFor(const QString &fileType) const;
    /// The extensions that loaded exporters write, sorted.
    QStringList exportedTypes() const;
    /// Which enabled exporters are passed over, and what to do about it, for people to read; nil if
    /// none is.
    QString passedOverExporters() const;
    /// The same for importers.
    QString passedOverImporters() const;
    /// Which enabled exporters cannot be loaded, and why, for people to read; nil if all can.
    QString failedExporters() const;
    /// The same for importers.
    QString failedImporters() const;

    /// The managers with what they are for, "exporter" and "importer".
    QList<std::pair<QString, KTPlugInManager *>> managers();

    /// Runs code that calls a plug-in, which fails if it throws something.
    Outcome<> call(const CobbleExporter &exporter, const std::function<void()> &code) const;
    /// The same for importers.
    Outcome<> call(const CobbleImporter &importer, const std::function<void()> &code) const;

private:
    KTPlugInManager _exporters;
    KTPlugInManager _importers;
};
