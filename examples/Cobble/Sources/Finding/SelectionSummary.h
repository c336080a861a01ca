#pragma once

#include "Open/RecordList.h"
#include "SummaryWorker.h"

#include <QObject>
#include <QTimer>

class QLabel;
class QTableView;

/// Shows in the status bar how many records are selected, and what the values of the current column
/// come to in them. Of very many it is found out in a thread.
class SelectionSummary : public QObject
{
    Q_OBJECT

public:
    /// \param table, \param records what is selected where.
    /// \param label where it is shown.
    SelectionSummary(QTableView *table, RecordList *records, QLabel *label);

    /// The library of the records, whose fields are the columns; null for none.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
    /// Looks at the selection again, in a moment: many changes are one.
    void updateSoon() { _timer.start(); }
    /// The same at once.
    void update();

private:
    QString selectedText() const;
    void show(const QString &text);
    void sumUp(qsizetype field);
    void showSummary(const FieldSummary &summary);

    QTableView *_table;
    RecordList *_records;
    QLabel *_label;
    std::shared_ptr<OpenLibrary> _library;
    /// The field that is being summed up.
    qsizetype _field = 0;
    QTimer _timer;
    SummaryWorker _worker;
};
