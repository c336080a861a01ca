#include "ReplacedLibrary.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
bool namesMedia(const KTDatabaseBundle &bundle, const QString &text)
{
    const std::optional<NSURL> url = NSURL::URLWithString(text);
    return url && bundle.isMediaURL(*url);
}
} // namespace

Outcome<ReplacedLibrary> ReplacedLibrary::find(LibraryStore &store, const KTDatabaseBundle &bundle,
                                               const QString &name)
{
    const Outcome<QList<Library>> libraries = store.libraries();
    if (!libraries)
        return libraries.failure();
    ReplacedLibrary replaced;
    replaced._library = Libraries::named(name, *libraries);
    if (!replaced._library)
        return replaced;
    const Outcome<QSet<QString>> media = store.mediaOf(*replaced._library);
    if (!media)
        return media.failure();
    if (std::any_of(media->begin(), media->end(),
                    [&bundle](const QString &text) { return namesMedia(bundle, text); }))
        replaced._media = *media;
    return replaced;
}

Outcome<ReplacedLibrary> ReplacedLibrary::find(const KTDatabaseBundle &bundle, const QString &name)
{
    const QFileInfo database(bundle.databaseFilePath());
    if (!database.exists() && !database.isSymLink())
        return ReplacedLibrary();
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    if (!store)
        return store.failure();
    return find(**store, bundle, name);
}

void ReplacedLibrary::keepMediaColumns(const ImportSchema &schema,
                                       QMap<qsizetype, FieldType> *types) const
{
    // As texts they would let the files go that the library has.
    const QSet<QString> columns = _library ? _library->mediaColumns() : QSet<QString>();
    for (qsizetype column = 0; column < schema.columns.size(); ++column) {
        if (columns.contains(schema.columns.at(column).columnName))
            types->insert(column, FieldType::Media);
    }
}

Failure ReplacedLibrary::loss(qint64 row, const QString &text, const QString &reason)
{
    return {u"row %1: '%2': %3"_s.arg(QString::number(row), text, reason)};
}
