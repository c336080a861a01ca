#pragma once

#include "FieldPreviewer.h"

#include <QDialog>

#include <functional>

class FieldListModel;
class FieldOptionsEditor;
class ProblemLabel;
class QComboBox;
class QLabel;
class QPushButton;
class QTableView;
class QTreeWidget;
class QVBoxLayout;

/// A sheet with all fields of a library: one can rename and move them, give them other types and
/// settings, add some and remove some. It says what becomes of the values before anything is stored,
/// and stays, saying why, if it cannot be stored.
///
/// \code
/// auto *const sheet = new FieldSheet(window, bundle, library, [this](const FieldPlan &plan) {
///     return LibrarySteps::changeFields(change, plan);
/// });
/// sheet->open();
/// \endcode
class FieldSheet : public QDialog
{
    Q_OBJECT

public:
    /// Makes a plan.
    using Make = std::function<Outcome<>(const FieldPlan &plan)>;

    /// It is destroyed when it ends.
    FieldSheet(QWidget *window, const KTDatabaseBundle &bundle, const Library &library,
               const Make &make);
    ~FieldSheet() override;

    const FieldPlan &plan() const;
    /// Whether what becomes of the values is still looked for.
    bool isLooking() const;
    /// What stands below the list; nil if all is well.
    QString problem() const;

    void accept() override;

private:
    void addParts();
    QWidget *makeListPart();
    void makeList();
    void setUpHeaders();
    QWidget *makeButtons();
    QWidget *makeForm();
    QWidget *makePreview();
    QWidget *makeEnd();
    QPushButton *addButton(QVBoxLayout *layout, const QString &title,
                           void (FieldSheet::*command)());
    void addKeys();
    void connectParts();
    void connectForm();

    int row() const;
    void select(int row);
    void addField();
    void removeField();
    void renameField();
    void moveUp();
    void moveDown();
    void moveBy(int distance);
    void commitName();

    void planChanged();
    void showField();
    void showChanges();
    void showState();
    QString reasonAgainst() const;
    void showProblem(const QString &reason);
    FieldPlan confirmed() const;
    bool goToWrongTitle();
    Outcome<> make() const;

    Make _make;
    std::unique_ptr<FieldListModel> _model;
    FieldPreviewer _previewer;
    QTableView *_list = nullptr;
    QPushButton *_remove = nullptr;
    QPushButton *_rename = nullptr;
    QPushButton *_up = nullptr;
    QPushButton *_down = nullptr;
    QComboBox *_type = nullptr;
    FieldOptionsEditor *_options = nullptr;
    QLabel *_state = nullptr;
    QTreeWidget *_changes = nullptr;
    ProblemLabel *_problem = nullptr;
    QPushButton *_change = nullptr;
};
