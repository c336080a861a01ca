#include "ImportSheet.h"

#include <KTUtility/KTWindowController>

#include <QCheckBox>
#include <QFileDialog>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {
const QString Cancelled = u"Cancelled. Nothing was stored."_s;
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
    outlet<QCheckBox>(u"replaceBox"_s)->setChecked(false);
}

ImportRequest ImportSheet::request()
{
    ImportRequest request;
    request.path = file();
    const QString name = outlet<QLineEdit>(u"nameEdit"_s)->text().trimmed();
    request.libraryName = name.isEmpty() ? ImportRequest::libraryNameForFile(request.path) : name;
    request.replaces = outlet<QCheckBox>(u"replaceBox"_s)->isChecked();
    request.bundle = bundle()->bundle();
    return request;
}

QString ImportSheet::work()
{
    if (file().isEmpty())
        return u"Please choose a file."_s;
    const ImportRequest wanted = request();
    if (!goOn(0, 0))
        return Cancelled;
    ImportFile importFile;
    const QString mistake = ImportFile::read(wanted, &importFile);
    if (!mistake.isNull())
        return u"%1: %2"_s.arg(wanted.path, mistake);
    importFile.settings.progress = [this](qint64 row, qint64 count) { return goOn(row, count); };
    const ImportFile::Outcome outcome = importFile.store(wanted, PatienceWithOthers);
    if (outcome.values.isCancelled)
        return Cancelled;
    if (!outcome.errorDescription.isNull())
        return u"Nothing was stored: %1"_s.arg(outcome.errorDescription);
    if (KTWindowController *const host = hostWindowController())
        host->exposeObjectToDialog(QVariant::fromValue(ImportResult{importFile.schema, outcome}),
                                   ResultKey);
    Q_EMIT imported(outcome.stored.name);
    return {};
}

void ImportSheet::choose()
{
    auto *const chooser = new QFileDialog(window(), u"Import"_s);
    chooser->setAttribute(Qt::WA_DeleteOnClose);
    chooser->setFileMode(QFileDialog::ExistingFile);
    chooser->setNameFilters({u"Tables and cards (*.csv *.tsv *.txt *.vcf)"_s, u"All files (*)"_s});
    QObject::connect(chooser, &QFileDialog::fileSelected, this, &TransferSheet::setFile);
    chooser->open();
}
