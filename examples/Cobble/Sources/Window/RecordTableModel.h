#pragma once

#include "OpenLibrary.h"

#include <KTUtility/NSArrayController>

#include <QAbstractTableModel>
#include <QHash>

/// The records that an array controller arranges, as a table for a QTableView: a row for each, with
/// the texts of its fields.
///
/// What is typed into a cell is read by its field's formatter. Clicking on a header sorts the
/// controller's objects.
class RecordTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// \param records whose arranged objects are StoredRecords; must outlive the model.
    explicit RecordTableModel(NSArrayController *records);

    /// \param library what the records belong to; null if there are none.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    StoredRecord *recordAt(qsizetype row) const;
    /// Has a cell's field read a text; an empty one is no value. What the cell shows is taken as it
    /// is.
    Outcome<> take(const QString &text, const QModelIndex &at);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    void sort(int column, Qt::SortOrder order) override;
    /// The rows of cells, as text with tabs and as separated values with the titles above.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    QStringList mimeTypes() const override;

Q_SIGNALS:
    /// A cell could not read what was typed into it, or it could not be stored.
    void refused(const QString &reason);

private:
    void reset();
    void showChange(StoredRecord *record, const QString &key);
    QString shownText(const StoredRecord &record, qsizetype field) const;
    QStringList titles() const;
    QStringList texts(int row) const;
    QVariant colour(const StoredRecord &record, qsizetype field) const;
    bool isNumber(qsizetype field) const;

    NSArrayController *_records;
    std::shared_ptr<OpenLibrary> _library;
    QHash<const StoredRecord *, int> _rows;
};
