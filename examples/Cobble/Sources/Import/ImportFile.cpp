#include "ImportFile.h"

#include "ImportTransaction.h"
#include "Library/PlugIns.h"
#include "MediaReference.h"
#include "Text/CSVText.h"
#include "Text/TextFile.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {
/// Whether a file type needs no importer.
bool isSeparatedText(const QString &fileType)
{
    static const QStringList types = {u""_s, u"csv"_s, u"tsv"_s, u"txt"_s};
    return types.contains(fileType);
}

/// A table as separated values.
QString separatedText(const CobbleTable &table)
{
    QString text = CSVText::row(table.titles);
    for (const QStringList &row : table.rows)
        text += CSVText::row(row);
    return text;
}

/// Lets an importer read a file's text. \return why it failed; nil if it did not.
QString readTable(CobbleImporter &importer, const QString &text, CobbleTable *table)
{
    QString error;
    bool isRead = false;
    const QString failure =
        PlugIns::failureOf([&] { isRead = importer.readTable(text, table, &error); });
    if (!failure.isNull())
        return u"the importer failed: %1"_s.arg(failure);
    if (isRead)
        return {};
    return error.isNull() ? u"the importer failed"_s : error;
}

void useTable(const CobbleTable &table, ImportFile *file)
{
    file->text = separatedText(table);
    file->extracted = table.files;
    for (qsizetype column = 0; column < table.typeNames.size(); ++column) {
        const QString &type = table.typeNames.at(column);
        if (!type.isEmpty())
            file->settings.types.insert(column, FieldTypes::storedTypeNamed(type));
    }
}

/// Turns the text of a file into separated values, if there is an importer for its extension.
/// \return why that failed; nil if it did not.
QString useImporter(const QString &path, ImportFile *file, std::optional<QChar> *separator)
{
    const QString fileType = QFileInfo(path).suffix().toLower();
    if (isSeparatedText(fileType))
        return {};
    const PlugIns plugIns;
    CobbleImporter *const importer = plugIns.importerFor(fileType);
    if (!importer)
        return {};
    CobbleTable table;
    const QString failure = readTable(*importer, file->text, &table);
    if (!failure.isNull())
        return failure;
    useTable(table, file);
    *separator = u',';
    return {};
}

/// \return the first header that no column has; nil if there is none.
QString addMediaColumns(const QStringList &headers, ImportFile *file)
{
    for (const QString &header : headers) {
        const qsizetype column = file->source.headers.indexOf(header);
        if (column < 0)
            return header;
        file->settings.types.insert(column, FieldType::Media);
    }
    return {};
}
} // namespace

QString ImportFile::read(const ImportRequest &request, ImportFile *file)
{
    QString reason;
    file->text = TextFile::textOfFile(request.path, &reason);
    if (file->text.isNull())
        return reason;
    std::optional<QChar> separator = request.separator;
    const QString failure = useImporter(request.path, file, &separator);
    if (!failure.isNull())
        return failure;
    file->source = ImportSource::fromText(file->text, separator);
    if (!file->source.errorDescription.isNull())
        return file->source.errorDescription;
    const QString missing = addMediaColumns(request.mediaHeaders, file);
    if (!missing.isNull())
        return u"there is no column '%1'"_s.arg(missing);
    file->schema = ImportSchema::fromHeaders(request.libraryName, file->source.headers);
    file->folder = QFileInfo(request.path).absolutePath();
    file->settings.isMedia = [start = file->folder](const QString &value) {
        return MediaReference::isObvious(value, start);
    };
    return {};
}

ImportFile::Outcome ImportFile::store(const ImportRequest &request, int patience) const
{
    Outcome outcome;
    const auto transaction =
        ImportTransaction::begin(request.bundle, &outcome.errorDescription, patience);
    if (!transaction)
        return outcome;
    LibraryImport import(*transaction, schema, folder, request.replaces);
    ImportValues::Settings storing = settings;
    storing.sink = &import;
    outcome.values = ImportValues::fromText(text, source, storing);
    outcome.errorDescription = outcome.values.errorDescription;
    if (outcome.errorDescription.isNull() && !transaction->commit())
        outcome.errorDescription = transaction->store().errorText();
    outcome.stored = import.storedLibrary();
    outcome.recordCount = import.recordCount();
    return outcome;
}
