#pragma once

#include <QMap>
#include <QString>
#include <QStringList>

class KTDatabaseBundle;

/// What a bundle's database holds, read by SQLite alone: for each library the records in the order
/// of their numbers, and of each record the number and the values of the fields, with "|" between.
using StoredCells = QMap<QString, QStringList>;

StoredCells storedCells(const KTDatabaseBundle &bundle);
