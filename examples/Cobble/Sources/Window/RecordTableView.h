#pragma once

#include <QTableView>

/// The table of records: dragged rows are carried with a badge that says how many there are.
class RecordTableView : public QTableView
{
    Q_OBJECT

public:
    explicit RecordTableView(QWidget *parent = nullptr);

    /// What is carried for so many rows: the first selected one, with a badge.
    QImage dragPicture(qsizetype rows) const;

protected:
    void startDrag(Qt::DropActions actions) override;
};
