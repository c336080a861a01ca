#include "ImportFile.h"

#include "ImportTransaction.h"
#include "Library/PlugIns.h"
#include "ReplacedLibrary.h"
#include "SeparatedText.h"
#include "Table.h"
#include "Text/Reasons.h"
#include "Text/TextFile.h"

#include <KTUtility/NSFileManager>

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
/// Whether a file type needs no importer.
bool isSeparatedText(const QString &fileType)
{
    static const QStringList types = {u""_s, u"csv"_s, u"tsv"_s, u"txt"_s};
    return types.contains(fileType);
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
Outcome<> useRows(Outcome<Rows> &&rows, ImportFile *file)
{
    if (!rows)
        return rows.failure();
    file->rows = std::make_shared<const Rows>(std::move(*rows));
    return {};
}

Outcome<> useTable(const CobbleTable &table, ImportFile *file)
{
    file->extracted = table.files;
    if (table.files)
        file->media.addFolder(table.files->path());
    for (qsizetype column = 0; column < table.typeNames.size(); ++column) {
        const QString &type = table.typeNames.at(column);
        if (!type.isEmpty())
            file->settings.types.insert(column, FieldTypes::storedTypeNamed(type));
    }
    return useRows(Table::of(table), file);
}

/// Takes the rows from the text of a file, by an importer if there is one for its extension.
Outcome<> useText(const QString &text, const ImportRequest &request, ImportFile *file)
{
    const QString fileType = QFileInfo(request.path).suffix().toLower();
    if (isSeparatedText(fileType))
        return useRows(SeparatedText::read(text, request.separator), file);
    const PlugIns plugIns;
    CobbleImporter *const importer = plugIns.importerFor(fileType);
    // One that cannot be used may be the one for this file, which then is no separated text.
    QStringList missing{plugIns.failedImporters(), plugIns.passedOverImporters()};
    missing.removeAll(QString());
    if (!importer && !missing.isEmpty())
        return Failure{missing.join(u"; "_s)};
    if (!importer)
        return useRows(SeparatedText::read(text, request.separator), file);
    const Outcome<CobbleTable> table = readTable(plugIns, *importer, text);
    return table ? useTable(*table, file) : table.failure();
}

Outcome<> useMediaColumns(const QStringList &headers, ImportFile *file)
{
    for (const QString &header : headers) {
        const qsizetype column = file->rows->headers().indexOf(header);
        if (column < 0)
            return Failure{Reasons::tr("there is no column '%1'").arg(header)};
        file->settings.types.insert(column, FieldType::Media);
        file->media.trust(column);
    }
    return {};
}

Outcome<> useConventions(const QMap<QString, ColumnConventions> &conventions, ImportFile *file)
{
    for (auto told = conventions.begin(); told != conventions.end(); ++told) {
        const qsizetype column = file->rows->headers().indexOf(told.key());
        if (column < 0)
            return Failure{Reasons::tr("there is no column '%1'").arg(told.key())};
        file->settings.conventions.insert(column, told.value());
    }
    return {};
}

/// Looks at media without storing them, and at nothing else.
class Preview : public ImportSink
{
public:
    Preview(const MediaSources &sources, const KTDatabaseBundle &bundle,
            const ReplacedLibrary &replaced)
        : _sources(sources), _bundle(bundle), _replaced(replaced)
    {
    }

    Outcome<> begin(const std::vector<std::unique_ptr<FieldReader>> &) override { return {}; }
    Outcome<> addRow(const QVariantList &) override
    {
        ++_row;
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
    /// What ends the import with the current row.
    Outcome<> _ended;
    qint64 _row = 1;
};
} // namespace

Outcome<ImportFile> ImportFile::read(const ImportRequest &request)
{
    const Outcome<QString> text = TextFile::textOfFile(request.path);
    if (!text)
        return text.failure();
    ImportFile file;
    file.media = MediaSources(QFileInfo(request.path).absolutePath());
    const Outcome<> used =
        useText(*text, request, &file)
            .andThen([&] { return useMediaColumns(request.mediaHeaders, &file); })
            .andThen([&] { return useConventions(request.conventions, &file); });
    if (!used)
        return used.failure();
    file.schema = ImportSchema::fromHeaders(request.libraryName, file.rows->headers());
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
    rows->whileRows([&](qint64, const QStringList &fields) {
        outcome = downloadRow(fields, downloads);
        return bool(outcome);
    });
    return outcome;
}

Outcome<ImportValues> ImportFile::preview(const ImportRequest &request) const
{
    const Outcome<ReplacedLibrary> replaced =
        request.replaces ? ReplacedLibrary::find(request.bundle, schema.libraryName)
                         : ReplacedLibrary();
    if (!replaced)
        return replaced.failure();
    Preview sink(media, request.bundle, *replaced);
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
    return StoredImport{*values, import.storedLibrary(), import.recordCount()};
}
