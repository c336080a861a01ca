#pragma once

#include "Filter/RecordFilter.h"

#include <QWidget>

class FilterRow;
class ProblemLabel;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QVBoxLayout;

/// Where a filter is put together: rows of a field, an operator and a value, and the same as a text.
/// What is changed in one is shown in the other. A filter that cannot be read says why, and finds
/// nothing.
///
/// \code
/// bar->setFields(std::make_shared<FilterFields>(library));
/// connect(bar, &FilterBar::filterChanged, this, [=] { use(bar->filter().predicate()); });
/// bar->setText(u"balance > 100"_s);
/// \endcode
class FilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit FilterBar(QWidget *parent = nullptr);

    /// The fields that there are to filter by; null for none. The filter goes.
    void setFields(const RecordFilter::Fields &fields);
    /// Replaces the filter by a text; a blank one is no filter.
    void setText(const QString &text);
    /// Shows a filter of these fields, which stays as it is until somebody changes it here.
    void setFilter(const RecordFilter &filter);
    QString text() const;
    const RecordFilter &filter() const { return _filter; }

    QList<FilterRow *> rows() const { return _rows; }
    QLineEdit *textInput() const { return _text; }
    QComboBox *joinBox() const { return _join; }
    QPushButton *saveButton() const { return _save; }
    QPushButton *closeButton() const { return _close; }
    /// What is wrong with the text; nil if nothing is.
    QString problem() const;
    /// Puts the keyboard where the first value is typed.
    void beginEditing();

Q_SIGNALS:
    void filterChanged();
    /// The filter is to be kept as a smart library.
    void saveRequested();
    /// The bar and its filter are to go.
    void closeRequested();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void makeHead();
    void makeText();
    FilterRow *insertRow(qsizetype place);
    void removeRow(FilterRow *row);
    void removeRows();
    void takeRows();
    void takeText();
    void take(const RecordFilter &filter);
    void showRows();
    void showTree(const FilterNode &root);
    void showProblems();
    void read();
    std::optional<FilterNode> treeOfRows() const;

    RecordFilter::Fields _fields;
    RecordFilter _filter;
    QList<FilterRow *> _rows;
    QVBoxLayout *_layout;
    QWidget *_rowsPlace;
    QVBoxLayout *_rowsLayout;
    QComboBox *_join;
    QLabel *_onlyText;
    QLineEdit *_text;
    ProblemLabel *_problem;
    QPushButton *_save;
    QPushButton *_close;
};
