#pragma once

#include "Editing/CopiedRecords.h"
#include "OpenLibrary.h"

#include <KTUtility/KTArrayModel>

/// The records that an array controller arranges, with the texts of their fields.
///
/// What is typed into a cell is read by its field, as imports and forms read it.
class RecordTableModel : public KTArrayModel
{
    Q_OBJECT

public:
    /// \param records whose arranged objects are StoredRecords.
    explicit RecordTableModel(NSArrayController *records) : KTArrayModel(records) {}

    /// \param library what the records belong to; null if there are none.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// Makes what it is given one change; if that fails, nothing is changed.
    using Changer = std::function<Outcome<>(const std::function<void()> &changes)>;
    /// What cells change records by.
    void setChanger(const Changer &changer) { _changer = changer; }
    StoredRecord *recordAt(qsizetype row) const;
    /// The type of the field in a column.
    FieldType typeAt(int column) const { return _library->definition().fields.at(column).type; }
    /// Records as they are copied, in the order of the rows.
    CopiedRecords copied(const QList<qsizetype> &rows) const;
    /// Has a cell's field read a text; an empty one is no value. What the cell shows is taken as it
    /// is.
    Outcome<> take(const QString &text, const QModelIndex &at);

    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    /// The rows of cells, in all forms in which they are copied.
    QMimeData *mimeData(const QModelIndexList &indexes) const override;
    QStringList mimeTypes() const override;

private:
    QList<CopiedField> copiedFields() const;
    QList<CopiedCell> copiedCells(const StoredRecord &record) const;

    std::shared_ptr<OpenLibrary> _library;
    Changer _changer;
};
