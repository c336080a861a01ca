#pragma once

#include "OpenLibrary.h"

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

    /// The library whose records are shown; null for none.
    void setLibrary(const std::shared_ptr<OpenLibrary> &library);
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
    std::shared_ptr<OpenLibrary> _library;
    QTimer _timer;
};
