#pragma once

#include <KTUtility/NSArrayController>

class QTableView;

/// Keeps the selected rows of a table and the selected objects of an array controller the same.
class TableSelection : public QObject
{
    Q_OBJECT

public:
    /// \param table with its model set; must outlive the selection, as the controller must.
    TableSelection(QTableView *table, NSArrayController *records);

private:
    void takeFromTable();
    void showInTable();

    QTableView *_table;
    NSArrayController *_records;
    bool _isPassing = false;
};
