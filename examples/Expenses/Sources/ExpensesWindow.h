#pragma once

#include "ExpenseExporter.h"

#include <KTUtility/KTArrayModel>
#include <KTUtility/KTLogComponent>
#include <KTUtility/KTPlugInManager>
#include <KTUtility/NSArrayController>

#include <QMainWindow>

/// The component under which the program logs.
KT_LOG_COMPONENT(LogExpenses, "Expenses")

/// A table of expenses, with a form for those that are selected.
class ExpensesWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Says whose settings, log and plug-ins are used; before any of them is.
    static void identifyProgram();
    /// \param file is read now and written by save().
    explicit ExpensesWindow(const QString &file);

    NSArrayController &expenses() { return _expenses; }

    void add();
    /// Asks first.
    void removeSelected();
    bool save();
    /// Shows the expenses whose title or phone number has a text in it.
    void search(const QString &text);
    /// Has the plug-in write that is for this kind of file.
    bool exportTo(const QString &file);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *form();
    void makeMenus();
    void loadPlugIns();
    void chooseExport();
    QList<ExpenseExporter *> exporters() const;
    void report(const QString &text) const;

    QString _file;
    NSArrayController _expenses;
    KTArrayModel _model;
    KTPlugInManager _plugIns;
};
