#pragma once

#include <QTableView>

/// The table of records: dragged rows are carried with a badge that says how many there are.
class RecordTableView : public QTableView
{
    Q_OBJECT

public:
    explicit RecordTableView(QWidget *parent = nullptr);

    /// Scrolls to a row, also right after rows have come or gone.
    void reveal(int row);
    /// What is carried for so many rows: the first selected one, with a badge.
    QImage dragPicture(qsizetype rows) const;

    /// What stands in the place of rows where there are none.
    QString emptyText() const { return _emptyText; }
    void setEmptyText(const QString &text);

protected:
    void startDrag(Qt::DropActions actions) override;
    void paintEvent(QPaintEvent *event) override;
    /// Looks at rows from everywhere in the table, since the first ones may be shorter than others.
    int sizeHintForColumn(int column) const override;

private:
    QString _emptyText;
};
