#pragma once

#include "Text/Outcome.h"

#include <QSet>
#include <QSqlDatabase>
#include <QStringList>

class QVariant;

// The media that the values of tables name.

namespace MediaInTables {
/// Whether a value is the URL of a file in the bundle.
bool isURL(const QVariant &value);
/// The media URLs in some columns of a table, whatever else is in them.
Outcome<QSet<QString>> urlsIn(const QSqlDatabase &database, const QString &table,
                              const QStringList &columns);
/// The media URLs in all columns of a table.
Outcome<QSet<QString>> urlsIn(const QSqlDatabase &database, const QString &table);
} // namespace MediaInTables
