#include "ExportSheet.h"

#include "Appearance/Counts.h"
#include "Export/ChosenRecords.h"
#include "Export/LibraryExport.h"
#include "PlugIns/PlugIns.h"

#include <QComboBox>
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
    auto *const box = outlet<QComboBox>(u"recordsBox"_s);
    box->clear();
    box->addItem(tr("All of the library"));
    offerRecords(ShownKey, tr("Those shown (%1)"));
    offerRecords(SelectedKey, tr("Those selected (%1)"));
}

void ExportSheet::offerRecords(const QString &key, const QString &title)
{
    const auto ids = windowDataSourceObjectForKey(key).value<SharedRecordIds>();
    if (ids && !ids->empty())
        outlet<QComboBox>(u"recordsBox"_s)
            ->addItem(title.arg(Counts::number(qint64(ids->size()))), QVariant::fromValue(ids));
}

/// Null for all of the library.
SharedRecordIds ExportSheet::chosenRecords()
{
    return outlet<QComboBox>(u"recordsBox"_s)->currentData().value<SharedRecordIds>();
}

/// Whether there is nothing in the way, or the user has seen that there is.
bool ExportSheet::mayWrite(const QString &path)
{
    const bool may = !QFileInfo::exists(path) || path == _confirmed;
    _confirmed = path;
    return may;
}

Outcome<qint64> ExportSheet::exportTo(const QString &path)
{
    LibraryStore *const store = bundle()->store();
    if (!store)
        return Failure{tr("There is no database.")};
    const Outcome<Library> library = store->libraryNamed(_libraryName);
    if (!library)
        return library.failure();
    const auto progress = [this](qint64 done, qint64 total) { return goOn(done, total); };
    const SharedRecordIds ids = chosenRecords();
    if (!ids)
        return LibraryExport::run(*store, *library, path, progress);
    ChosenRecords records(*store, *library, ids);
    return LibraryExport::run(records, path, qint64(ids->size()), progress);
}

Outcome<> ExportSheet::work()
{
    if (file().isEmpty())
        return Failure{tr("Please choose a file.")};
    if (!mayWrite(file()))
        return Failure{tr("There is a file of that name. Export once more to replace it.")};
    const Outcome<qint64> count = exportTo(file());
    if (count.isCancelled())
        return Failure{tr("Cancelled. The file was not written."), true};
    if (!count)
        return count.failure();
    Q_EMIT exported(*count, file());
    return {};
}

void ExportSheet::choose()
{
    auto *const chooser = new QFileDialog(window(), tr("Export"));
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
