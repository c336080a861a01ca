#include "ImportSheet.h"

#include "Appearance/Counts.h"
#include "Appearance/IsolatedText.h"
#include "Importing/WorkThread.h"
#include "Text/CSVReader.h"
#include "Text/CSVSeparator.h"
#include "Text/ShortText.h"
#include "Text/TextEncodings.h"

#include <KTUtility/KTWindowController>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include <utility>

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

/// How long an import waits for another program's, in milliseconds.
constexpr int PatienceWithOthers = 300;
/// How often the window looks how far it is, in milliseconds.
constexpr int LookInterval = 20;
/// How long nothing has to be typed until the preview is made anew, in milliseconds.
constexpr int PreviewDelay = 300;
/// So many values that would be rejected are listed.
constexpr qsizetype MostRejected = 200;

/// How far an import is, told by its thread.
struct Progress
{
    std::atomic<bool> goesOn = true;
    std::atomic<qint64> row = 0;
    std::atomic<qint64> rowCount = 0;

    bool tell(qint64 done, qint64 total)
    {
        row = done;
        rowCount = total;
        return goesOn;
    }
};

Outcome<ImportResult> importInThread(Outcome<ImportFile> file, const ImportRequest &request,
                                     Progress *progress)
{
    if (file.isCancelled())
        return cancelled();
    if (!file)
        return Failure{ImportSheet::tr("%1: %2").arg(request.path, file.reason())};
    if (file->hasOtherColumns)
        return Failure{ImportSheet::tr("The file has other columns than those that you have chosen "
                                       "for. Please look at them and try again.")};
    file->settings.progress = [progress](qint64 row, qint64 count) {
        return progress->tell(row, count);
    };
    const Outcome<StoredImport> stored = file->store(request, PatienceWithOthers);
    if (stored.isCancelled())
        return cancelled();
    if (!stored)
        return Failure{ImportSheet::tr("Nothing was stored: %1").arg(stored.reason())};
    return ImportResult{file->schema, *stored};
}

/// How the fields of a file are separated.
QString separationText(QChar separator)
{
    const QMap<QChar, QString> texts{{u',', ImportSheet::tr("separated by commas")},
                                     {u';', ImportSheet::tr("separated by semicolons")},
                                     {u'\t', ImportSheet::tr("separated by tabs")},
                                     {u'|', ImportSheet::tr("separated by bars")},
                                     {u' ', ImportSheet::tr("separated by spaces")}};
    const QString other = ImportSheet::tr("separated by “%1”").arg(separator);
    return texts.value(separator, other);
}

void addSeparators(QComboBox *box)
{
    box->addItem(ImportSheet::tr("Automatic"), QString());
    const std::pair<QString, QChar> separators[] = {{ImportSheet::tr("Comma"), u','},
                                                    {ImportSheet::tr("Semicolon"), u';'},
                                                    {ImportSheet::tr("Tab"), u'\t'},
                                                    {ImportSheet::tr("Bar |"), u'|'},
                                                    {ImportSheet::tr("Space"), u' '}};
    for (const auto &[name, separator] : separators)
        box->addItem(name, QString(separator));
}

void addEncodings(QComboBox *box)
{
    box->addItem(ImportSheet::tr("Automatic"), TextEncodings::Automatic);
    for (const QString &name : TextEncodings::names())
        box->addItem(name, name);
}

void addLocales(QComboBox *box)
{
    box->addItem(ImportSheet::tr("Yours"), QString());
    const NSLocale own = NSLocale::currentLocale(NSLocale::Category::Texts);
    QMap<QString, QString> identifiers;
    for (const QString &identifier : NSLocale::availableLocaleIdentifiers())
        identifiers.insert(own.displayNameForKey(NSLocaleIdentifier, identifier), identifier);
    for (auto each = identifiers.begin(); each != identifiers.end(); ++each)
        box->addItem(each.key(), each.value());
}

void addCells(QTableWidget *table, const QStringList &texts)
{
    const int row = table->rowCount();
    table->insertRow(row);
    for (int column = 0; column < texts.size(); ++column)
        table->setItem(row, column, new QTableWidgetItem(IsolatedText::of(texts.at(column))));
}
} // namespace

ImportSheet::ImportSheet(OpenBundle *bundle) : TransferSheet(u":/Cobble/ImportSheet.ui"_s, bundle)
{
    _delay.setSingleShot(true);
    _delay.setInterval(PreviewDelay);
    QObject::connect(&_delay, &QTimer::timeout, this, &ImportSheet::showPreview);
    QObject::connect(&_previewer, &ImportPreviewer::shown, this, &ImportSheet::show);
    QObject::connect(&_previewer, &ImportPreviewer::failed, this, &ImportSheet::showNothing);
}

void ImportSheet::windowDidLoad()
{
    TransferSheet::windowDidLoad();
    _columns = std::make_unique<ColumnEditor>(ColumnEditor::Parts{
        outlet<QTableWidget>(u"previewTable"_s), outlet<QComboBox>(u"columnBox"_s),
        outlet<QCheckBox>(u"storedBox"_s), outlet<QLineEdit>(u"headerEdit"_s),
        outlet<QComboBox>(u"typeBox"_s), outlet<QComboBox>(u"conventionBox"_s),
        outlet<QComboBox>(u"currencyBox"_s)});
    fillBoxes();
    connectInputs();
}

void ImportSheet::fillBoxes()
{
    addSeparators(outlet<QComboBox>(u"separatorBox"_s));
    addEncodings(outlet<QComboBox>(u"encodingBox"_s));
    addLocales(outlet<QComboBox>(u"localeBox"_s));
    auto *const rejected = outlet<QTableWidget>(u"rejectedTable"_s);
    rejected->setColumnCount(4);
    rejected->setHorizontalHeaderLabels({tr("Row"), tr("Column"), tr("Value"), tr("Why")});
    rejected->verticalHeader()->hide();
    rejected->horizontalHeader()->setStretchLastSection(true);
    rejected->setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void ImportSheet::connectInputs()
{
    QObject::connect(outlet<QLineEdit>(u"fileEdit"_s), &QLineEdit::textChanged, this,
                     &ImportSheet::fileChanged);
    for (const QString &name : {u"nameEdit"_s, u"mediaEdit"_s})
        QObject::connect(outlet<QLineEdit>(name), &QLineEdit::textChanged, this,
                         &ImportSheet::inputChanged);
    for (const QString &name : {u"separatorBox"_s, u"encodingBox"_s, u"localeBox"_s})
        QObject::connect(outlet<QComboBox>(name), &QComboBox::activated, this,
                         &ImportSheet::inputChanged);
    for (const QString &name : {u"headersBox"_s, u"replaceBox"_s})
        QObject::connect(outlet<QCheckBox>(name), &QCheckBox::clicked, this,
                         &ImportSheet::inputChanged);
    QObject::connect(_columns.get(), &ColumnEditor::changed, this, &ImportSheet::inputChanged);
}

void ImportSheet::configDialog()
{
    TransferSheet::configDialog();
    setFile(std::exchange(_proposed, QString()));
    resetInputs();
    _columns->clear();
    showNothing(QString());
    // A file that was dropped is looked at like one that is typed.
    if (!file().isEmpty())
        _delay.start();
}

void ImportSheet::resetInputs()
{
    outlet<QLineEdit>(u"nameEdit"_s)->clear();
    outlet<QLineEdit>(u"mediaEdit"_s)->clear();
    outlet<QCheckBox>(u"replaceBox"_s)->setChecked(false);
    outlet<QCheckBox>(u"headersBox"_s)->setChecked(true);
    for (const QString &name : {u"separatorBox"_s, u"encodingBox"_s, u"localeBox"_s})
        outlet<QComboBox>(name)->setCurrentIndex(0);
    _delay.stop();
}

ImportRequest ImportSheet::request()
{
    ImportRequest request;
    request.path = file();
    const QString name = outlet<QLineEdit>(u"nameEdit"_s)->text().trimmed();
    request.libraryName = name.isEmpty() ? ImportRequest::libraryNameForFile(request.path) : name;
    request.mediaHeaders = headersIn(outlet<QLineEdit>(u"mediaEdit"_s)->text());
    request.replaces = outlet<QCheckBox>(u"replaceBox"_s)->isChecked();
    request.hasHeaders = outlet<QCheckBox>(u"headersBox"_s)->isChecked();
    request.encoding = outlet<QComboBox>(u"encodingBox"_s)->currentData().toString();
    request.locale = outlet<QComboBox>(u"localeBox"_s)->currentData().toString();
    request.separator =
        CSVSeparator::fromName(outlet<QComboBox>(u"separatorBox"_s)->currentData().toString());
    request.columns = _columns->choices();
    request.chosenFor = _columns->columns();
    request.takesPipes = false;
    request.bundle = bundle()->bundle();
    return request;
}

// --- Preview

/// Another file has other columns.
void ImportSheet::fileChanged()
{
    _columns->clear();
    inputChanged();
}

void ImportSheet::inputChanged()
{
    if (!isWorking())
        _delay.start();
}

void ImportSheet::showPreview()
{
    _delay.stop();
    if (file().isEmpty()) {
        _previewer.stop();
        showNothing(QString());
        return;
    }
    outlet<QLabel>(u"formLabel"_s)->setText(tr("Reading…"));
    _previewer.show(request());
}

void ImportSheet::showNothing(const QString &reason)
{
    _columns->showNoRows();
    outlet<QTableWidget>(u"rejectedTable"_s)->setRowCount(0);
    outlet<QLabel>(u"rejectedLabel"_s)->setText(QString());
    outlet<QLabel>(u"formLabel"_s)->setText(reason);
    Q_EMIT previewed();
}

void ImportSheet::show(const ImportPreview &preview)
{
    if (isWorking())
        return;
    _columns->show(preview);
    showForm(preview);
    showRejected(preview);
    Q_EMIT previewed();
}

void ImportSheet::showForm(const ImportPreview &preview)
{
    const RowSource &rows = *preview.file.rows;
    QStringList parts{tr("Rows: %1").arg(Counts::number(rows.rowCount())),
                      separationText(rows.separator())};
    if (!rows.encoding().isNull())
        parts += rows.encoding();
    if (rows.raggedRowCount() > 0)
        parts +=
            tr("with fewer or more fields than there are headers: %1").arg(rows.raggedRowCount());
    if (rows.unclosedQuoteLine() > 0)
        parts += tr("a quote in line %1 is never closed").arg(rows.unclosedQuoteLine());
    outlet<QLabel>(u"formLabel"_s)->setText(parts.join(u", "_s));
}

void ImportSheet::showRejected(const ImportPreview &preview)
{
    const QList<ImportValues::Unread> &unread = preview.values.unread;
    auto *const table = outlet<QTableWidget>(u"rejectedTable"_s);
    table->setRowCount(0);
    for (const ImportValues::Unread &value : unread.first(qMin(unread.size(), MostRejected)))
        addCells(table, {QString::number(value.row), preview.file.rows->headers().at(value.column),
                         ShortText::firstLine(value.text), value.reason});
    table->resizeColumnsToContents();
    outlet<QLabel>(u"rejectedLabel"_s)
        ->setText(unread.isEmpty()
                      ? tr("All values can be read.")
                      : tr("Values that cannot be read, and would be kept as typed: %1")
                            .arg(Counts::number(preview.values.unreadCount())));
}

// --- Import

/// In a thread of its own, with a connection of its own; plug-ins are called in this one.
Outcome<ImportResult> ImportSheet::import(const ImportRequest &request)
{
    Progress progress;
    const bool isText = ImportFile::isSeparatedText(request.path);
    const Outcome<ImportFile> file = isText ? ImportFile() : ImportFile::read(request);
    Outcome<ImportResult> result = cancelled();
    WorkThread::run(
        [&] {
            const auto goesOn = [&progress] { return progress.goesOn.load(); };
            result = importInThread(isText ? ImportFile::read(request, goesOn) : file, request,
                                    &progress);
        },
        [&] {
            releaseHostIfLong();
            progress.goesOn = goOn(progress.row, progress.rowCount) && progress.goesOn;
        },
        LookInterval);
    return result;
}

Outcome<> ImportSheet::work()
{
    if (file().isEmpty())
        return Failure{tr("Please choose a file.")};
    _delay.stop();
    _previewer.stop();
    const ImportRequest wanted = request();
    if (!goOn(0, 0))
        return cancelled();
    const Outcome<ImportResult> result = import(wanted);
    if (!result) {
        // The preview was given up.
        _delay.start();
        return result.failure();
    }
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
