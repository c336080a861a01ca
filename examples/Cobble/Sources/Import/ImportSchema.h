#pragma once

#include "ImportColumn.h"

#include <QList>
#include <QStringList>

/// The library that an import would make: its names and its columns.
///
/// \code
/// const ImportSchema schema = ImportSchema::fromHeaders(u"contacts"_s, {u"E-mail"_s, u"e
/// mail"_s}); schema.tableName;                      // "kt_contacts"
/// schema.columns.at(0).columnName;       // "kt_email"
/// schema.columns.at(1).columnName;       // "kt_eMail1", since SQL takes "kt_eMail" for "kt_email"
/// \endcode
struct ImportSchema
{
    /// The schema of a library named \a libraryName with a column for each of \a headers.
    static ImportSchema fromHeaders(const QString &libraryName, const QStringList &headers);

    QString libraryName;
    QString libraryEntityName;
    QString entityName;
    QString tableName;
    QList<ImportColumn> columns;
};

/// The entity's name for \a text.
///
/// The framework remembers entity and library entity names in one table, on purpose, so that who
/// asks first for a text decides both. Whoever needs the two of one text asks the framework for the
/// library entity's and this function, which remembers nothing, for the entity's.
QString entityNameForText(const QString &text);
