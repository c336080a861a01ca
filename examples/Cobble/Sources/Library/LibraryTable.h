#pragma once

#include "Library.h"
#include "Text/Outcome.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariantList>

#include <memory>
#include <optional>

/// The table of a library, with values as the database has them: 64-bit integers, doubles, texts,
/// blobs and nil, each as what it is.
///
/// Statements are prepared once, so that thousands of records are quick. The table must not be
/// changed by others, nor its columns, while one of these is in use.
///
/// \code
/// LibraryTable table = *LibraryTable::open(database, u"kt_contacts"_s);
/// const auto before = table.valuesOf(12, {u"kt_name"_s});
/// table.update(12, {u"kt_name"_s}, {u"Eve"_s});
/// \endcode
class LibraryTable
{
public:
    /// Fails for what is no table, and for tables whose records have no number of their own.
    static Outcome<LibraryTable> open(const QSqlDatabase &database, const QString &name);

    const QString &name() const { return _name; }
    /// All columns but the records' numbers, also those that no field has.
    const QStringList &columns() const { return _columns; }

    /// The values of a record; nothing if there is no such record.
    Outcome<std::optional<QVariantList>> valuesOf(qint64 id, const QStringList &columns);
    /// Adds a record.
    /// \param id its number; the database chooses one if there is none.
    /// \return its number.
    Outcome<qint64> insert(const std::optional<qint64> &id, const QStringList &columns,
                           const QVariantList &values);
    Outcome<> update(qint64 id, const QStringList &columns, const QVariantList &values);
    Outcome<> remove(qint64 id);

    /// Whether values are the same, and of the same kind.
    static bool areEqual(const QVariantList &some, const QVariantList &others);
    /// Makes the table of a library.
    static Outcome<> make(const QSqlDatabase &database, const Library &library);

private:
    LibraryTable(const QSqlDatabase &database, const QString &name, const QStringList &columns);
    Outcome<QSqlQuery *> prepared(const QString &statement);
    Outcome<> runOnRecord(const QString &statement, const QVariantList &values);

    QSqlDatabase _database;
    QString _name;
    QStringList _columns;
    QHash<QString, std::shared_ptr<QSqlQuery>> _prepared;
};
