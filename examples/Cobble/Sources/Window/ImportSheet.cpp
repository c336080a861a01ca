#include "ImportSheet.h"

#include "Text/CSVReader.h"

#include <KTUtility/KTWindowController>

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {
Failure cancelled()
{
    return {ImportSheet::tr("Cancelled. Nothing was stored."), true};
}

/// Headers with commas between them, in quotation marks where they hold one.
QStringList headersIn(const QString &text)
{
    QStringList headers;
    CSVReader(QStringView(text).trimmed(), u',').readRow(&headers);
    for (QString &header : headers)
        header = header.trimmed();
    headers.removeAll(QString());
    return headers;
}

/// How long the window stands still for another program's import, in milliseconds.
constexpr int PatienceWithOthers = 300;
} // namespace

ImportSheet::ImportSheet(OpenBundle *bundle) : TransferSheet(u":/Cobble/ImportSheet.ui"_s, bundle)
{
}

void ImportSheet::configDialog()
{
    TransferSheet::configDialog();
    setFile(QString());
    outlet<QLineEdit>(u"nameEdit"_s)->clear();
    outlet<QLineEdit>(u"mediaEdit"_s)->clear();
    outlet<QCheckBox>(u"replaceBox"_s)->setChecked(false);
}

ImportRequest ImportSheet::request()
{
    ImportRequest request;
    request.path = file();
    const QString name = outlet<QLineEdit>(u"nameEdit"_s)->text().trimmed();
    request.libraryName = name.isEmpty() ? ImportRequest::libraryNameForFile(request.path) : name;
    request.mediaHeaders = headersIn(outlet<QLineEdit>(u"mediaEdit"_s)->text());
    request.replaces = outlet<QCheckBox>(u"replaceBox"_s)->isChecked();
    request.bundle = bundle()->bundle();
    return request;
}

Outcome<ImportResult> ImportSheet::import(const ImportRequest &request)
{
    Outcome<ImportFile> file = ImportFile::read(request);
    if (!file)
        return Failure{tr("%1: %2").arg(request.path, file.reason())};
    file->settings.progress = [this](qint64 row, qint64 count) { return goOn(row, count); };
    const Outcome<StoredImport> stored = file->store(request, PatienceWithOthers);
    if (stored.isCancelled())
        return cancelled();
    if (!stored)
        return Failure{tr("Nothing was stored: %1").arg(stored.reason())};
    return ImportResult{file->schema, *stored};
}

Outcome<> ImportSheet::work()
{
    if (file().isEmpty())
        return Failure{tr("Please choose a file.")};
    const ImportRequest wanted = request();
    if (!goOn(0, 0))
        return cancelled();
    const Outcome<ImportResult> result = import(wanted);
    if (!result)
        return result.failure();
    if (KTWindowController *const host = hostWindowController())
        host->exposeObjectToDialog(QVariant::fromValue(*result), ResultKey);
    Q_EMIT imported(result->stored.library.name);
    return {};
}

void ImportSheet::choose()
{
    auto *const chooser = new QFileDialog(window(), tr("Import"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    chooser->setNameFilters(
        {tr("Tables and cards (*.csv *.tsv *.txt *.vcf)"), tr("All files (*)")});
    QObject::connect(chooser, &QFileDialog::fileSelected, this, &TransferSheet::setFile);
    chooser->open();
}
