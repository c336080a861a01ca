#pragma once

#include "Filter/FilterFields.h"

#include <QWidget>

class ProblemLabel;
class QComboBox;
class QLabel;
class QLineEdit;

/// One condition of the filter bar: a field, an operator and a value, in words.
///
/// \code
/// auto *const row = new FilterRow(fields);
/// row->setComparison(comparison);
/// connect(row, &FilterRow::changed, this, [=] { use(row->comparison()); });
/// \endcode
class FilterRow : public QWidget
{
    Q_OBJECT

public:
    explicit FilterRow(const std::shared_ptr<const FilterFields> &fields,
                       QWidget *parent = nullptr);

    /// What is chosen and typed; nothing while a value is missing.
    std::optional<FilterComparison> comparison() const;
    /// Whether a row has words for a comparison.
    static bool canShow(const FilterComparison &comparison, const FilterFields &fields);
    void setComparison(const FilterComparison &comparison);
    /// Says below the value what is wrong with it; nil takes that away.
    void setProblem(const QString &reason);
    QString problem() const;

    QComboBox *fieldBox() const { return _field; }
    QComboBox *operatorBox() const { return _operator; }
    QLineEdit *valueInput() const { return _value; }
    /// The end of a range.
    QLineEdit *endInput() const { return _end; }

Q_SIGNALS:
    /// Something was chosen or typed.
    void changed();
    /// A row below this one is wanted.
    void addRequested();
    void removeRequested();

private:
    void makeInputs();
    void makeButtons();
    void listOperators();
    void showInputs();
    FilterOperator operation() const;

    std::shared_ptr<const FilterFields> _fields;
    QComboBox *_field;
    QComboBox *_operator;
    QLineEdit *_value;
    QLabel *_and;
    QLineEdit *_end;
    ProblemLabel *_problem;
    QString _passesOver = QStringLiteral("cd");
};
