#pragma once

#include "Records/RowRuns.h"

#include <QItemSelection>
#include <QObject>

class RecordList;
class RecordTableModel;
class RecordTableView;

/// Joins what is selected in a table with what is selected among the records, by ranges of rows.
///
/// \code
/// RecordSelection selection(&records, &model, table);
/// \endcode
class RecordSelection : public QObject
{
    Q_OBJECT

public:
    /// \param table shows the model, which shows the records.
    RecordSelection(RecordList *records, RecordTableModel *model, RecordTableView *table);

    /// Scrolls to the first selected row if none of the selected ones is to be seen.
    void reveal() const;

private:
    void takeFromTable();
    void clearTable();
    void showInTable();
    QItemSelection inTable() const;
    RowRuns rowsInTable() const;

    RecordList *_records;
    RecordTableModel *_model;
    RecordTableView *_table;
    bool _isPassing = false;
};
