#pragma once

#include "PastePlan.h"

#include <QDialog>

class QTableWidget;

/// Lists what of a pasted table cannot be stored, and asks whether to paste the rest. Nothing is
/// stored before.
///
/// \code
/// PasteProblems::ask(window, plan.problems(), [plan] { store(plan); });
/// \endcode
class PasteProblems : public QDialog
{
    Q_OBJECT

public:
    /// So many are listed.
    static constexpr qsizetype MostListed = 1000;

    /// Shows the list as a sheet of a window; it goes by itself.
    /// \param rest is called if the rest is wanted.
    static void ask(QWidget *window, const QList<PastePlan::Problem> &problems,
                    const std::function<void()> &rest);

private:
    PasteProblems(QWidget *window, const QList<PastePlan::Problem> &problems);
    QTableWidget *makeTable(const QList<PastePlan::Problem> &problems);
    void addButtons();
};
