#include "FuzzTarget.h"
#include "Import/ImportSchema.h"
#include "Import/ImportSource.h"
#include "Import/ImportValues.h"
#include "Targets.h"
#include "Text/CSVReader.h"

#include <KTUtility/KTDatabaseBundle>
#include <KTUtility/KTMediaFilenameMunger>
#include <KTUtility/NSURL>

#include <QDir>
#include <QSet>

using namespace Qt::StringLiterals;

void fuzzMedia(FuzzInput &input)
{
    const KTDatabaseBundle bundle(u"/nowhere/fuzz.cobbledb"_s);
    const QString folder = bundle.mediaFolderPath();
    const QString text = input.text();
    const auto isInside = [&folder](const QString &path) {
        return path.isNull() || QDir::cleanPath(path).startsWith(QDir::cleanPath(folder) + u'/');
    };
    for (const QString &candidate : {text, QString(u"cobblemedia://" + text)}) {
        if (const std::optional<NSURL> url = NSURL::URLWithString(candidate)) {
            FUZZ_REQUIRE(isInside(bundle.filePathFromMediaUrl(*url)));
            FUZZ_REQUIRE(!bundle.isMediaURL(*url) || url->scheme() == u"cobblemedia");
        }
        bundle.mediaUrlFromFilePath(candidate);
        bundle.isFileNameInMediaFolder(candidate);
    }
    KTMediaFilenameMunger::originalFileNameFromDBStoredName(text);
    KTMediaFilenameMunger::makeDBStoredNamefromOriginalFileName(text);
    KTMediaFilenameMunger::stringByRemovingExtComment(
        KTMediaFilenameMunger::stringByAddingExtComment(text, u"orig"_s));
}

void fuzzCSV(FuzzInput &input)
{
    std::optional<QChar> separator;
    if (input.flag())
        separator = QChar(ushort(input.byte()));
    const QString text = input.text();
    const ImportSource source = ImportSource::fromText(text, separator);
    if (!source.errorDescription.isNull())
        return;
    qint64 rows = 0;
    source.forEachRow(text, [&rows](qint64 row, const QStringList &) {
        ++rows;
        FUZZ_REQUIRE(row == rows);
    });
    FUZZ_REQUIRE(rows == source.rowCount);
    const ImportSchema schema = ImportSchema::fromHeaders(u"fuzz"_s, source.headers);
    QSet<QString> names;
    for (const ImportColumn &column : schema.columns)
        names += column.columnName.toCaseFolded();
    FUZZ_REQUIRE(names.size() == source.headers.size());
    const ImportValues values = ImportValues::fromText(text, source);
    for (const ImportValues::Column &column : values.columns)
        FUZZ_REQUIRE(column.read + column.unread + column.empty == rows);
}
