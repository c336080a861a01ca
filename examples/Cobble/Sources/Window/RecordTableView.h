#pragma once

#include "FieldDelegate.h"

#include <QTableView>

/// The table of records: dragged rows are carried with a badge that says how many there are.
///
/// Return, F2 and a double click edit the current cell. Letters go to the next record whose text in
/// the current column begins with them.
class RecordTableView : public QTableView
{
    Q_OBJECT

public:
    explicit RecordTableView(QWidget *parent = nullptr);

    /// Scrolls to a row, also right after rows have come or gone.
    void reveal(int row);
    /// What is carried for so many rows: the first selected one, with a badge.
    QImage dragPicture(qsizetype rows) const;
    /// Goes on from a cell that was typed into: down, or to the next cell that can be edited.
    void goOn(const QModelIndex &from, FieldDelegate::Way way);
    /// Makes a cell the current one and edits it, if it can be edited.
    void editCell(const QModelIndex &cell);
    /// The same for the first cell of a row that can be edited.
    void editFirstCell(int row);

    /// What stands in the place of rows where there are none.
    QString emptyText() const { return _emptyText; }
    void setEmptyText(const QString &text);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void startDrag(Qt::DropActions actions) override;
    void paintEvent(QPaintEvent *event) override;
    /// Looks at rows from everywhere in the table, since the first ones may be shorter than others.
    int sizeHintForColumn(int column) const override;

private:
    void goTo(const QModelIndex &cell);
    QModelIndex editableCell(const QModelIndex &from, int step) const;
    QString _emptyText;
};
