#pragma once

#include "OpenLibrary.h"
#include "Records/RecordArrangement.h"
#include "Records/RowRuns.h"

#include <KTUtility/NSArrayController>

/// The records of a library that a window shows: which ones, in which order, and which of them are
/// selected. There may be millions of them: only what is shown and what is selected is in memory,
/// of a large selection not even that.
///
/// What is selected stays so when other records are shown or in another order, as long as it is not
/// scattered over more than MostRuns places; then nothing but its first record stays selected.
///
/// \code
/// RecordList records;
/// records.setLibrary(library);
/// records.setSearch(u"ada"_s);
/// records.setSelectionIndex(0);
/// \endcode
class RecordList : public QObject
{
    Q_OBJECT

public:
    /// More selected records than these are not given to detail().
    static constexpr qsizetype MostInDetail = 200;
    static constexpr qsizetype MostRuns = 1000;

    RecordList();
    ~RecordList() override;

    /// \param library null shows no records.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// The library's records that fulfil all of these, by a typed text and by a condition on their
    /// keys, which are the names of columns. It is evaluated in any thread. The first one is selected
    /// if none of those that were selected is left.
    void setSearch(const QString &typed);
    /// \param isSlow whether a single record may take long.
    void setFilter(const NSPredicate &filter, bool isSlow = false);
    /// Without any, they are in the order in which they were stored.
    void setSorts(const QList<RecordSort> &sorts) { _arrangement.setSorts(sorts); }
    void setSort(qsizetype field, Qt::SortOrder order) { setSorts({{field, order}}); }
    const QList<RecordSort> &sorts() const { return _arrangement.sorts(); }

    /// Whether other records are still looked for, and whether that takes long.
    bool isArranging() const { return _arrangement.isWorking(); }
    bool isSlow() const { return _arrangement.isSlow(); }
    /// Whether not all records of the library are wanted.
    bool isFiltering() const { return _arrangement.isFiltering(); }

    /// The numbers of the records that are shown, in their order.
    const SharedRecordIds &ids() const { return _arrangement.ids(); }
    qsizetype count() const { return qsizetype(ids()->size()); }
    /// The row of a record; −1 if it is not shown.
    qsizetype rowOf(qint64 id) const;
    /// The record of a row; null if there is none, or it cannot be read now. It lives until some
    /// hundred others were asked for.
    StoredRecord *recordAt(qsizetype row) const;

    // --- What is selected

    const RowRuns &selection() const { return _selection; }
    /// Selects these rows only; those that there are not are left out.
    void setSelection(const RowRuns &rows);
    /// Selects the records that are shown of some; while isArranging(), those that will be, too.
    /// \return false if none of them is.
    bool selectIds(const RecordIds &ids);
    qsizetype selectedCount() const { return _selection.count(); }
    RecordIds selectedIds() const;
    /// The first selected row; −1 if there is none.
    qsizetype selectionIndex() const { return _selection.first(); }
    void setSelectionIndex(qsizetype row) { setSelectionIndexes({row}); }
    /// The selected rows, ascending: for a few.
    QList<qsizetype> selectionIndexes() const { return _selection.rows(); }
    void setSelectionIndexes(const QList<qsizetype> &rows);

    /// The selected records, all of them selected, for a form. Of more than MostInDetail none.
    NSArrayController *detail() { return &_detail; }
    bool isSelectionInDetail() const { return selectedCount() <= MostInDetail; }

Q_SIGNALS:
    /// Other records are shown, or in another order; while isArranging(), more may come.
    void arrangedObjectsChanged();
    /// Others are selected.
    void selectionChanged();
    /// isSlow() has changed.
    void slowChanged();
    /// The value of a shown record may have changed; a field of −1 stands for all.
    void valueChanged(qsizetype row, qsizetype field);
    /// Values of any records may have changed.
    void valuesChanged();
    /// The records could not be arranged as it was wished for; they are shown as before.
    void failed(const QString &reason);

private:
    void connectLibrary();
    void recordChanged(const StoredRecord *record, const QString &key);
    void followArrangement();
    RowRuns selectionNow() const;
    RowRuns rowsOf(const RecordIdSet &ids) const;
    void select(const RowRuns &rows);
    void prepareAround(qsizetype row) const;
    void fillDetail();

    std::shared_ptr<OpenLibrary> _library;
    RecordArrangement _arrangement;
    RowRuns _selection;
    /// What is shown, as the selection's rows count.
    SharedRecordIds _selectedAmong = std::make_shared<RecordIds>();
    /// What was selected when an arrangement began that is still on its way.
    std::optional<RecordIdSet> _toSelect;
    /// What is selected if all that was selected is gone; −1 for nothing.
    qsizetype _fallback = -1;
    /// Those in the form.
    std::vector<std::shared_ptr<StoredRecord>> _held;
    NSArrayController _detail;
};
