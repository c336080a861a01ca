#pragma once

#include "DataChange.h"

#include <QJsonArray>
#include <QList>
#include <QStringList>

// The numbers of records on command lines.

namespace RecordNumbers {
/// Takes the numbers at the beginning of some arguments, each once.
Outcome<QList<qint64>> taken(QStringList *arguments);
/// Fails with ExitCode::NotFound if a library lacks one of the records.
Outcome<> need(DataChange &change, const Library &library, const QList<qint64> &numbers);
/// For scripts.
QJsonArray arrayOf(const QList<qint64> &numbers);
} // namespace RecordNumbers
