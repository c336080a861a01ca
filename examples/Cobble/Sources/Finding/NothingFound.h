#pragma once

#include <QWidget>

class QAbstractScrollArea;
class QLabel;
class QPushButton;

/// Lies over a table in which nothing is shown because nothing was found: says so, and has a button
/// that shows everything again.
class NothingFound : public QWidget
{
    Q_OBJECT

public:
    /// \param table what it lies over.
    explicit NothingFound(QAbstractScrollArea *table);

    /// Says what was looked for and not found; nil shows the table.
    void setText(const QString &text);
    QString text() const;
    QPushButton *showAllButton() const { return _showAll; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QLabel *_label;
    QPushButton *_showAll;
};
