#pragma once

#include "Editing/CopiedRecords.h"
#include "Open/RecordList.h"

#include <KTUtility/KTArrayColumn>

#include <QAbstractTableModel>

/// The records that a list shows, with the texts of their fields. They are read as a view asks for
/// them.
///
/// When other records are shown or in another order, rows are moved, removed and inserted; the model
/// is never reset. What is typed into a cell is read by its field, as imports and forms read it.
class RecordTableModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    /// Roles besides those of Qt.
    enum Role {
        /// The value as it is.
        ValueRole = Qt::UserRole,
    };

    /// \param records must outlive the model.
    explicit RecordTableModel(RecordList *records);

    /// \param library what the records belong to; null if there are none.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// Makes what it is given one change; if that fails, nothing is changed.
    using Changer = std::function<Outcome<>(const std::function<void()> &changes)>;
    /// What cells change records by.
    void setChanger(const Changer &changer) { _changer = changer; }
    const QList<KTArrayColumn> &columns() const { return _columns; }
    StoredRecord *recordAt(qsizetype row) const { return _records->recordAt(row); }
    /// The type of the field in a column.
    FieldType typeAt(int column) const { return _library->definition().fields.at(column).type; }
    /// More records than these are not copied: memory might not hold them.
    static constexpr qsizetype MostCopied = 100'000;
    /// Records as they are copied, all of them in the order of the rows; none if they are too many.
    Outcome<CopiedRecords> copied(const RowRuns &rows) const;
    /// Has a cell's field read a text; an empty one is no value. What the cell shows is taken as it
    /// is.
    Outcome<> take(const QString &text, const QModelIndex &at);
    /// Whether the rows are just being brought to those of the list.
    bool isRearranging() const { return _isRearranging; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /// Has the list sort its records; for a column that there is not, in the order in which they
    /// were stored.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
    /// The rows of cells, in all forms in which they are copied.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    QStringList mimeTypes() const override;

Q_SIGNALS:
    /// A text could not be read, or the record did not take the value.
    void rejected(const QModelIndex &index, const QString &reason);
    /// The rows will be brought to those of the list, and they are.
    void willRearrange();
    void rearranged();

private:
    void rearrange();
    void insertAtEnd(int count);
    void removeFromEnd(int count);
    void moveRows(const SharedRecordIds &ids);
    QModelIndexList placesIn(const RecordIds &ids, const QModelIndexList &before) const;
    void tellChanged(qsizetype row, qsizetype field);
    void tellAllChanged();
    QVariant valueAt(const QModelIndex &index) const;
    QString textAt(const QModelIndex &index) const;
    QVariant colourAt(const QModelIndex &index) const;
    QList<CopiedField> copiedFields() const;
    QList<CopiedCell> copiedCells(const QVariantList &values) const;

    RecordList *_records;
    std::shared_ptr<OpenLibrary> _library;
    Changer _changer;
    QList<KTArrayColumn> _columns;
    /// What the rows were at last.
    SharedRecordIds _ids = std::make_shared<RecordIds>();
    /// Of which there may be more or fewer rows while they are being rearranged.
    int _rowCount = 0;
    bool _isRearranging = false;
};
