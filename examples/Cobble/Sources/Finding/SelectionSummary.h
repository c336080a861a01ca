#pragma once

#include "Filter/RecordFilter.h"

#include <QObject>
#include <QTimer>

class NSArrayController;
class QLabel;
class QTableView;

/// Shows in the status bar how many records are selected, and what the values of the current column
/// come to in them.
class SelectionSummary : public QObject
{
    Q_OBJECT

public:
    /// \param table, \param records what is selected where.
    /// \param label where it is shown.
    SelectionSummary(QTableView *table, NSArrayController *records, QLabel *label);

    /// The fields of the records, one for each column; null for none.
    void setFields(const RecordFilter::Fields &fields);
    /// Looks at the selection again, in a moment: many changes are one.
    void updateSoon() { _timer.start(); }
    /// The same at once.
    void update();

private:
    QString text() const;
    QString summaryOf(const QVariantList &selected, int column) const;

    QTableView *_table;
    NSArrayController *_records;
    QLabel *_label;
    RecordFilter::Fields _fields;
    QTimer _timer;
};
