#include "ImportFile.h"

#include "ImportTransaction.h"
#include "Library/RecordTexts.h"
#include "PlugIns/PlugIns.h"
#include "ReplacedLibrary.h"
#include "SeparatedText.h"
#include "Table.h"
#include "Text/Reasons.h"
#include "Text/TextFile.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSFileManager>

#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QString fileTypeOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

/// Lets an importer read a file's text.
Outcome<CobbleTable> readTable(const PlugIns &plugIns, CobbleImporter &importer,
                               const QString &text)
{
    CobbleTable table;
    QString error;
    bool isRead = false;
    const Outcome<> called =
        plugIns.call(importer, [&] { isRead = importer.readTable(text, &table, &error); });
    if (!called)
        return Failure{Reasons::tr("the importer failed: %1").arg(called.reason())};
    if (!isRead)
        return Failure{error.isEmpty() ? Reasons::tr("the importer failed") : error};
    return table;
}

template<typename Rows>
Outcome<> useRowsOf(Outcome<Rows> &&rows, std::shared_ptr<RowSource> *source)
{
    if (!rows)
        return rows.failure();
    *source = std::make_shared<Rows>(std::move(*rows));
    return {};
}

Outcome<> useTable(const CobbleTable &table, ImportFile *file, std::shared_ptr<RowSource> *rows)
{
    file->extracted = table.files;
    if (table.files)
        file->media.addFolder(table.files->path());
    for (qsizetype column = 0; column < table.typeNames.size(); ++column) {
        const QString &type = table.typeNames.at(column);
        if (!type.isEmpty())
            file->settings.types.insert(column, FieldTypes::storedTypeNamed(type));
    }
    return useRowsOf(Table::of(table), rows);
}

Outcome<> useText(const ImportRequest &request, const std::function<bool()> &goesOn,
                  std::shared_ptr<RowSource> *rows)
{
    const Outcome<TextSource> text = TextSource::ofFile(request.path, request.encoding, goesOn);
    if (!text)
        return text.failure();
    return useRowsOf(SeparatedText::read(*text, {request.separator, request.hasHeaders}, goesOn),
                     rows);
}

Outcome<> useImporter(const PlugIns &plugIns, CobbleImporter &importer,
                      const ImportRequest &request, ImportFile *file,
                      std::shared_ptr<RowSource> *rows)
{
    const Outcome<QString> text = TextFile::textOfFile(request.path, request.encoding);
    if (!text)
        return text.failure();
    const Outcome<CobbleTable> table = readTable(plugIns, importer, *text);
    return table ? useTable(*table, file, rows) : table.failure();
}

/// Takes the rows of a file, by an importer if there is one for its extension.
Outcome<> useFile(const ImportRequest &request, const std::function<bool()> &goesOn,
                  ImportFile *file, std::shared_ptr<RowSource> *rows)
{
    if (ImportFile::isSeparatedText(request.path))
        return useText(request, goesOn, rows);
    const PlugIns plugIns;
    CobbleImporter *const importer = plugIns.importerFor(fileTypeOf(request.path));
    // One that cannot be used may be the one for this file, which then is no separated text.
    QStringList missing{plugIns.failedImporters(), plugIns.passedOverImporters()};
    missing.removeAll(QString());
    if (!importer && !missing.isEmpty())
        return Failure{missing.join(u"; "_s)};
    return importer ? useImporter(plugIns, *importer, request, file, rows)
                    : useText(request, goesOn, rows);
}

/// Whether nobody has to write what is read.
Outcome<> checkPlain(const ImportRequest &request)
{
    using std::filesystem::file_type;
    if (request.takesPipes)
        return {};
    std::error_code error;
    const std::string path = QFile::encodeName(request.path).toStdString();
    const file_type type = std::filesystem::status(path, error).type();
    const bool isEndless = type == file_type::fifo || type == file_type::character ||
                           type == file_type::block || type == file_type::socket;
    return isEndless ? Failure{Reasons::tr("is a pipe or a device, not a file")} : Outcome<>();
}

/// What is known of a column that is wanted.
void useChoice(const ColumnChoice &choice, qsizetype column, RowSource *rows, ImportFile *file)
{
    if (choice.type)
        file->settings.types.insert(column, *choice.type);
    if (choice.isTrusted)
        file->media.trust(column);
    if (choice.conventions.isAny())
        file->settings.conventions.insert(column, choice.conventions);
    if (choice.header)
        rows->rename(column, *choice.header);
}

QList<qsizetype> skippedIn(const ColumnChoices &choices)
{
    QList<qsizetype> columns;
    for (auto choice = choices.begin(); choice != choices.end(); ++choice) {
        if (choice->isSkipped)
            columns += choice.key();
    }
    return columns;
}

Outcome<> useChoices(const ColumnChoices &choices, RowSource *rows, ImportFile *file)
{
    rows->skip(skippedIn(choices));
    if (rows->headers().isEmpty())
        return Failure{Reasons::tr("no column is left")};
    const auto typesInFile = std::exchange(file->settings.types, {});
    for (qsizetype column = 0; column < rows->selected().size(); ++column) {
        const qsizetype inFile = rows->selected().at(column);
        if (typesInFile.contains(inFile))
            file->settings.types.insert(column, typesInFile.value(inFile));
        useChoice(choices.value(inFile), column, rows, file);
    }
    return {};
}

/// Looks at what the columns are, and at what is wanted of them.
Outcome<> useColumns(const ImportRequest &request, RowSource *rows, ImportFile *file)
{
    file->columns = FileColumns::of(*rows, request.hasHeaders);
    file->hasOtherColumns = !request.columns.isEmpty() && request.chosenFor &&
                            !request.chosenFor->areSame(file->columns);
    ImportRequest fitting = request;
    if (file->hasOtherColumns)
        fitting.columns.clear();
    const auto choices = columnChoicesOf(fitting, rows->headers());
    return choices ? useChoices(*choices, rows, file) : choices.failure();
}

/// Looks at media without storing them, and at nothing else.
class Preview : public ImportSink
{
public:
    Preview(const MediaSources &sources, const KTDatabaseBundle &bundle,
            const ReplacedLibrary &replaced, ShownRows *shown)
        : _sources(sources), _bundle(bundle), _replaced(replaced), _shown(shown)
    {
    }

    /// Whoever shows the library has formatters of their own, and those of the import are busy.
    Outcome<> begin(const std::vector<std::unique_ptr<FieldReader>> &readers) override
    {
        for (const auto &reader : readers) {
            _fields.emplace_back(reader->type());
            if (const QString currency = reader->currencyType(); !currency.isNull())
                _fields.back().formatter()->setOptions({{kKTFieldOption_currencyType, currency}});
            if (_shown)
                _shown->types += reader->type();
        }
        return {};
    }
    Outcome<> addRow(const QVariantList &values) override
    {
        ++_row;
        if (_shown && _shown->rows.size() < _shown->most)
            show(values);
        return _ended;
    }
    Outcome<QVariant> storeMedia(qsizetype column, const QString &text) override
    {
        const Outcome<NSURL> url = _sources.urlIn(column, text);
        const Outcome<> checked = url ? check(*url) : url.failure();
        if (checked)
            return QVariant(text);
        if (_ended && _replaced.loses(text))
            _ended = ReplacedLibrary::loss(_row, text, checked.reason());
        return checked.failure();
    }

private:
    void show(const QVariantList &values)
    {
        QStringList texts;
        for (qsizetype column = 0; column < values.size(); ++column)
            texts += RecordTexts::textOf(_fields[size_t(column)], values.at(column));
        _shown->rows += texts;
    }

    /// What is on the web is taken to be there.
    Outcome<> check(const NSURL &url) const
    {
        if (url.isFileURL())
            return MediaSources::check(url.path());
        const bool isMissing = _bundle.isMediaURL(url) &&
                               !NSFileManager::fileExistsAtPath(_bundle.filePathFromMediaUrl(url));
        return isMissing ? Failure{Reasons::tr("there is no such file")} : Outcome<>();
    }

    const MediaSources &_sources;
    const KTDatabaseBundle &_bundle;
    const ReplacedLibrary &_replaced;
    ShownRows *_shown;
    std::vector<FieldReader> _fields;
    /// What ends the import with the current row.
    Outcome<> _ended;
    qint64 _row = 1;
};
} // namespace

bool ImportFile::isSeparatedText(const QString &path)
{
    static const QStringList types = {u""_s, u"csv"_s, u"tsv"_s, u"txt"_s};
    return types.contains(fileTypeOf(path));
}

Outcome<ImportFile> ImportFile::read(const ImportRequest &request,
                                     const std::function<bool()> &goesOn)
{
    ImportFile file;
    file.media = MediaSources(QFileInfo(request.path).absolutePath());
    std::shared_ptr<RowSource> rows;
    const Outcome<> used = checkPlain(request)
                               .andThen([&] { return useFile(request, goesOn, &file, &rows); })
                               .andThen([&] { return useColumns(request, rows.get(), &file); });
    if (!used)
        return used.failure();
    file.rows = rows;
    file.schema = ImportSchema::fromHeaders(request.libraryName, rows->headers());
    file.settings.threads = request.threads;
    if (!request.locale.isNull())
        file.settings.locale = NSLocale(request.locale);
    file.settings.isMedia = [media = file.media](const QString &value) {
        return media.isObvious(value);
    };
    return file;
}

bool ImportFile::goesOn(qint64 row) const
{
    return !settings.progress || settings.progress(row, rows->rowCount());
}

Outcome<> ImportFile::downloadRow(const QStringList &fields, MediaDownloads *downloads) const
{
    for (const qsizetype column : media.trustedColumns()) {
        const Outcome<NSURL> url = media.urlIn(column, fields.value(column));
        const bool isOnWeb = url && url->scheme() == u"http";
        const Outcome<> fetched =
            isOnWeb ? downloads->fetch(*url, [this] { return goesOn(0); }) : Outcome<>();
        if (!fetched)
            return fetched;
    }
    return {};
}

Outcome<> ImportFile::downloadInto(MediaDownloads *downloads) const
{
    Outcome<> outcome;
    if (media.trustedColumns().isEmpty())
        return outcome;
    const Outcome<> read = rows->whileRows([&](qint64, const QStringList &fields) {
        outcome = downloadRow(fields, downloads);
        return bool(outcome);
    });
    return outcome.andThen([&read] { return read; });
}

Outcome<ImportValues> ImportFile::preview(const ImportRequest &request, ShownRows *shown) const
{
    const Outcome<ReplacedLibrary> replaced =
        request.replaces ? ReplacedLibrary::find(request.bundle, schema.libraryName)
                         : ReplacedLibrary();
    if (!replaced)
        return replaced.failure();
    Preview sink(media, request.bundle, *replaced, shown);
    ImportValues::Settings reading = settings;
    replaced->keepMediaColumns(schema, &reading.types);
    reading.sink = &sink;
    return ImportValues::of(*rows, reading);
}

Outcome<StoredImport> ImportFile::store(const ImportRequest &request, int patience) const
{
    MediaDownloads downloads;
    const Outcome<> downloaded = downloadInto(&downloads);
    if (!downloaded)
        return downloaded.failure();
    const auto transaction = ImportTransaction::begin(request.bundle, patience);
    if (!transaction)
        return transaction.failure();
    qint64 current = 0;
    LibraryImport import(**transaction, schema,
                         {media, downloads, [&] { (void)goesOn(current); }, request.replaces});
    ImportValues::Settings storing = settings;
    storing.progress = [&](qint64 row, qint64) {
        current = row;
        return goesOn(row);
    };
    storing.sink = &import;
    const Outcome<ReplacedLibrary> replaced =
        request.replaces
            ? ReplacedLibrary::find((*transaction)->store(), request.bundle, schema.libraryName)
            : ReplacedLibrary();
    if (!replaced)
        return replaced.failure();
    replaced->keepMediaColumns(schema, &storing.types);
    const Outcome<ImportValues> values = ImportValues::of(*rows, storing);
    if (!values)
        return values.failure();
    const Outcome<> committed = (*transaction)->commit();
    if (!committed)
        return committed.failure();
    return StoredImport{*values, import.storedLibrary(), import.recordCount(),
                        (*transaction)->step(), (*transaction)->stepTitle()};
}
