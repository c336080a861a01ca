#include "ImportSheet.h"

#include <KTUtility/KTWindowController>

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>

namespace {
const QString Cancelled = QStringLiteral("Cancelled. Nothing was stored.");
/// How long the window stands still for another program's import, in milliseconds.
constexpr int PatienceWithOthers = 300;
} // namespace

ImportSheet::ImportSheet(OpenBundle *bundle)
    : TransferSheet(QStringLiteral(":/Cobble/ImportSheet.ui"), bundle)
{
}

void ImportSheet::configDialog()
{
    TransferSheet::configDialog();
    setFile(QString());
    outlet<QLineEdit>(QStringLiteral("nameEdit"))->clear();
    outlet<QCheckBox>(QStringLiteral("replaceBox"))->setChecked(false);
}

ImportRequest ImportSheet::request()
{
    ImportRequest request;
    request.path = file();
    const QString name = outlet<QLineEdit>(QStringLiteral("nameEdit"))->text().trimmed();
    request.libraryName = name.isEmpty() ? ImportRequest::libraryNameForFile(request.path) : name;
    request.replaces = outlet<QCheckBox>(QStringLiteral("replaceBox"))->isChecked();
    request.bundle = bundle()->bundle();
    return request;
}

QString ImportSheet::work()
{
    if (file().isEmpty())
        return QStringLiteral("Please choose a file.");
    const ImportRequest wanted = request();
    if (!goOn(0, 0))
        return Cancelled;
    ImportFile importFile;
    const QString mistake = ImportFile::read(wanted, &importFile);
    if (!mistake.isNull())
        return QStringLiteral("%1: %2").arg(wanted.path, mistake);
    importFile.settings.progress = [this](qint64 row, qint64 count) { return goOn(row, count); };
    const ImportFile::Outcome outcome = importFile.store(wanted, PatienceWithOthers);
    if (outcome.values.isCancelled)
        return Cancelled;
    if (!outcome.errorDescription.isNull())
        return QStringLiteral("Nothing was stored: %1").arg(outcome.errorDescription);
    if (KTWindowController *const host = hostWindowController())
        host->exposeObjectToDialog(QVariant::fromValue(ImportResult{importFile.schema, outcome}),
                                   ResultKey);
    Q_EMIT imported(outcome.stored.name);
    return {};
}

void ImportSheet::choose()
{
    auto *const chooser = new QFileDialog(window(), QStringLiteral("Import"));
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    chooser->setNameFilters({QStringLiteral("Tables and cards (*.csv *.tsv *.txt *.vcf)"),
                             QStringLiteral("All files (*)")});
    QObject::connect(chooser, &QFileDialog::fileSelected, this, &TransferSheet::setFile);
    chooser->open();
}
