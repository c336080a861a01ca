#include "ExportSheet.h"

#include "Library/LibraryExport.h"
#include "Library/PlugIns.h"

#include <QDir>
#include <QFileDialog>

using namespace Qt::StringLiterals;

namespace {
/// A name for the file, in which "/" is no folder.
QString suggestedFile(const QString &libraryName)
{
    return QDir::home().filePath(QString(libraryName).replace(u'/', u'_') + u".csv");
}
} // namespace

ExportSheet::ExportSheet(OpenBundle *bundle) : TransferSheet(u":/Cobble/ExportSheet.ui"_s, bundle)
{
}

void ExportSheet::configDialog()
{
    TransferSheet::configDialog();
    _libraryName = windowDataSourceObjectForKey(LibraryKey).toString();
    setFile(suggestedFile(_libraryName));
    _confirmed = QString();
}

/// Whether there is nothing in the way, or the user has seen that there is.
bool ExportSheet::mayWrite(const QString &path)
{
    const bool may = !QFileInfo::exists(path) || path == _confirmed;
    _confirmed = path;
    return may;
}

QString ExportSheet::work()
{
    if (file().isEmpty())
        return u"Please choose a file."_s;
    if (!mayWrite(file()))
        return u"There is a file of that name. Export once more to replace it."_s;
    LibraryStore *const store = bundle()->store();
    const std::optional<Library> library = store ? store->libraryNamed(_libraryName) : std::nullopt;
    if (!library)
        return store ? store->reasonForNo(_libraryName) : u"There is no database."_s;
    const LibraryExport::Outcome outcome = LibraryExport::run(
        *store, *library, file(), [this](qint64 done, qint64 total) { return goOn(done, total); });
    if (outcome.isCancelled)
        return u"Cancelled. The file was not written."_s;
    if (!outcome.errorDescription.isNull())
        return u"%1: %2"_s.arg(outcome.subject, outcome.errorDescription);
    Q_EMIT exported(outcome.recordCount, file());
    return {};
}

void ExportSheet::choose()
{
    auto *const chooser = new QFileDialog(window(), u"Export"_s);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setAcceptMode(QFileDialog::AcceptSave);
    chooser->selectFile(file());
    QStringList filters;
    for (const QString &type : PlugIns().exportedTypes())
        filters += u"%1 (*.%2)"_s.arg(type.toUpper(), type);
    chooser->setNameFilters(filters);
    // The chooser has asked.
    QObject::connect(chooser, &QFileDialog::fileSelected, this, [this](const QString &path) {
        _confirmed = path;
        setFile(path);
    });
    chooser->open();
}
