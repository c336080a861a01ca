#pragma once

#include "ExpensesWindow.h"

#include <QTemporaryDir>

#include <memory>

class Expense;

/// The program as its users meet it, in German.
class ExpensesTests : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void readsWhatPeopleType_data();
    void readsWhatPeopleType();
    void saysWhyATextIsRefused();
    void theTableEditsByTheSameFormatters();
    void theFormSetsAllThatIsSelected();
    void searchesWithoutAccents();
    void sortsAsPeopleDo();
    void newExpensesHaveNamesOfTheirOwn();
    void asksBeforeItDeletes();
    void aSilencedQuestionIsAnsweredWithDelete();
    void readsBackWhatItSaved();
    void logsUnderItsOwnComponent();
    void exportsByAPlugIn();
    void closingTakesWhatIsTyped();
    void keepsItsSettings();
    void drawsItsPictures();

private:
    QString file(const QString &name) const { return _folder->filePath(name); }
    ExpensesWindow &window() { return *_window; }
    Expense *addExpense(const QString &title, const QString &amount = {});
    void pressInAlert(const QString &button, bool silences = false);
    void addSample();

    std::unique_ptr<QTemporaryDir> _folder;
    std::unique_ptr<ExpensesWindow> _window;
};
