#pragma once

#include "ImportSchema.h"
#include "Library/LibraryStore.h"

#include <QMap>
#include <QSet>

#include <optional>

/// The library that an import takes the place of, and what would be lost with it.
///
/// \code
/// const auto replaced = ReplacedLibrary::find(store, bundle, u"People"_s);
/// replaced->keepMediaColumns(schema, &types);
/// if (replaced->loses(text))
///     return replaced->loss(row, text, reason);
/// \endcode
class ReplacedLibrary
{
public:
    /// None, with which nothing is lost.
    ReplacedLibrary() = default;
    /// The one of a name; it is no error if there is none.
    static Outcome<ReplacedLibrary> find(LibraryStore &store, const KTDatabaseBundle &bundle,
                                         const QString &name);
    /// The same for who only looks at a bundle, which may not be there.
    static Outcome<ReplacedLibrary> find(const KTDatabaseBundle &bundle, const QString &name);

    const std::optional<Library> &library() const { return _library; }
    /// Columns of media stay such, even if no file can be found.
    void keepMediaColumns(const ImportSchema &schema, QMap<qsizetype, FieldType> *types) const;
    /// Whether files would go in exchange for a text of which none can be stored: the library has
    /// some, and not this text.
    bool loses(const QString &text) const { return !_media.isEmpty() && !_media.contains(text); }
    /// What ends an import then.
    /// \param row from 1, without the headers.
    static Failure loss(qint64 row, const QString &text, const QString &reason);

private:
    std::optional<Library> _library;
    /// Its values of media, if there are files among them.
    QSet<QString> _media;
};
