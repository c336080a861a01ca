#pragma once

#include <QString>
#include <QVariant>

class QObject;

/// Expenses in a property list.
namespace ExpenseFile {
/// The expenses of a file, which belong to \a parent; none if there is no such file.
QVariantList read(const QString &path, QObject *parent);
/// Writes expenses, all or nothing.
bool write(const QVariantList &expenses, const QString &path);
} // namespace ExpenseFile
