#pragma once

#include "ExpenseExporter.h"

/// Writes the texts that people see, separated by commas, or by what a "separators.plist" among the
/// program's resources says for the user's locale.
class CSVExporter : public QObject, public ExpenseExporter
{
    Q_OBJECT
    Q_INTERFACES(ExpenseExporter)

public:
    static void pluginWillUnload() {}
    static void pluginDidUnload() {}

    QString fileType() const override;
    QByteArray exported(const QAbstractItemModel &table) const override;
};
