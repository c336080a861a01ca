#pragma once

#include <QAbstractItemModel>

/// What a plug-in implements that writes expenses in a format of its own.
class ExpenseExporter
{
public:
    virtual ~ExpenseExporter() = default;

    /// The extension of its files: "csv".
    virtual QString fileType() const = 0;
    /// The contents of a file with what a table shows.
    virtual QByteArray exported(const QAbstractItemModel &table) const = 0;
};

Q_DECLARE_INTERFACE(ExpenseExporter, "org.example.expenses.Exporter/1")
