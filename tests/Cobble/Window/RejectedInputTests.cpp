// What a field rejects stays in the main window until its user has decided.

#include "SheetSupport.h"

#include "Appearance/ProblemLabel.h"

#include <QStatusBar>

using namespace Qt::StringLiterals;

class RejectedInputTests : public HostSheetTest
{
protected:
    /// A window with something in the form that is no number.
    MainWindowController *openWithCow()
    {
        MainWindowController *const window = openThings();
        window->mainWindow()->activateWindow();
        turn();
        editor(window, 1)->input()->setFocus();
        type(editor(window, 1)->input(), u"a cow"_s);
        return window;
    }
    static void click(MainWindowController *window, int row)
    {
        QTableView *const table = window->mainWindow()->table();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(window->model()->index(row, 0)).center());
        turn();
    }
    static void answer(const QString &button)
    {
        ASSERT_NE(alertBox(), nullptr);
        press(alertBox(), button);
        turn();
    }
    static void expectCow(MainWindowController *window)
    {
        EXPECT_EQ(alertBox(), nullptr);
        EXPECT_EQ(editor(window, 1)->text(), u"a cow"_s);
        EXPECT_FALSE(editor(window, 1)->problem().isEmpty());
        EXPECT_EQ(window->records()->selectionIndex(), 0);
    }
};

TEST_F(RejectedInputTests, AnotherRecordWaits)
{
    MainWindowController *const window = openWithCow();
    click(window, 2);
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_TRUE(alertBox()->text().contains(u"“a cow”")) << alertBox()->text().toStdString();
    EXPECT_TRUE(alertBox()->text().contains(u"Visits"));
    QTest::keyClick(alertBox(), Qt::Key_Return);
    turn();
    expectCow(window);
    EXPECT_EQ(window->mainWindow()->focusWidget(), editor(window, 1)->input());
    click(window, 2);
    answer(u"Discard"_s);
    EXPECT_EQ(window->records()->selectionIndex(), 2);
    EXPECT_EQ(editor(window, 1)->text(), u"1,000"_s);
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(RejectedInputTests, AnotherLibraryWaits)
{
    import(u"Zoo.csv"_s, "Name\nCat\n");
    MainWindowController *const window = openWithCow();
    QListWidget *const list = window->mainWindow()->libraries();
    const auto clickZoo = [&] {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(1)).center());
        turn();
    };
    clickZoo();
    answer(u"Keep Editing"_s);
    expectCow(window);
    EXPECT_EQ(list->currentRow(), 0);
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    clickZoo();
    answer(u"Discard"_s);
    EXPECT_EQ(window->library()->definition().name, u"Zoo"_s);
    EXPECT_EQ(list->currentRow(), 1);
}

TEST_F(RejectedInputTests, ClosingAndQuittingWait)
{
    MainWindowController *const window = openWithCow();
    window->closeWindow();
    answer(u"Keep Editing"_s);
    expectCow(window);
    application->terminate();
    ASSERT_EQ(application->windows().size(), 1);
    answer(u"Discard"_s);
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

TEST_F(RejectedInputTests, ASearchWaits)
{
    MainWindowController *const window = openWithCow();
    window->mainWindow()->search()->setFocus();
    search(window, u"tall"_s);
    EXPECT_EQ(window->model()->rowCount(), 4);
    answer(u"Discard"_s);
    EXPECT_EQ(window->model()->rowCount(), 1);
}

TEST_F(RejectedInputTests, WhatCanBeStoredIsStoredAndLeft)
{
    MainWindowController *const window = openWithCow();
    type(editor(window, 1)->input(), u"12"_s);
    click(window, 2);
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(window->records()->selectionIndex(), 2);
    EXPECT_EQ(stored(1, 1), u"12"_s);
    type(editor(window, 1)->input(), u"13"_s);
    window->closeWindow();
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_EQ(stored(3, 1), u"13"_s);
}

TEST_F(RejectedInputTests, WhatOthersTakeAwayIsTold)
{
    MainWindowController *const window = openWithCow();
    EXPECT_TRUE(window->library()->removeRecords({window->model()->recordAt(0)->id()}));
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().contains(u"a cow"));
}

TEST_F(RejectedInputTests, ItIsMarkedAndCanBeRead)
{
    MainWindowController *const window = openWithCow();
    QWidget *const input = editor(window, 1)->input();
    const QColor before = input->palette().color(QPalette::Base);
    QTest::keyClick(input, Qt::Key_Return);
    const QColor marked = input->palette().color(QPalette::Base);
    EXPECT_NE(marked, before);
    EXPECT_GE(ProblemLabel::contrast(input->palette().color(QPalette::Text), marked),
              ProblemLabel::LeastContrast);
    EXPECT_EQ(input->accessibleDescription(), editor(window, 1)->problem());
    QTest::keyClick(input, Qt::Key_Escape);
    EXPECT_EQ(input->palette().color(QPalette::Base), before);
    EXPECT_EQ(editor(window, 1)->text(), u"7"_s);
}

TEST_F(RejectedInputTests, ACellStaysOpenUntilItIsDecided)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    turn();
    window->mainWindow()->table()->editCell(window->model()->index(0, 1));
    const QPointer<QWidget> line = QApplication::focusWidget();
    type(line, u"a cow"_s);
    click(window, 2);
    ASSERT_FALSE(line.isNull());
    EXPECT_EQ(window->records()->selectionIndex(), 0);
    answer(u"Keep Editing"_s);
    EXPECT_EQ(qobject_cast<QLineEdit *>(line)->text(), u"a cow"_s);
    EXPECT_EQ(window->mainWindow()->focusWidget(), line);
    window->closeWindow();
    answer(u"Keep Editing"_s);
    ASSERT_EQ(application->windows().size(), 1);
    click(window, 2);
    answer(u"Discard"_s);
    turn();
    EXPECT_TRUE(line.isNull() || !line->isVisible());
    EXPECT_EQ(window->records()->selectionIndex(), 2);
    EXPECT_EQ(stored(1, 1), u"7"_s);
}

namespace {
/// The form over more records than get a value without a question.
class ManyInputTests : public RejectedInputTests
{
protected:
    MainWindowController *openWithAll(const QString &typed)
    {
        QByteArray rows = "Name,Visits\n";
        for (int row = 1; row <= 25; ++row)
            rows += "Ann," + QByteArray::number(row) + '\n';
        import(u"Many.csv"_s, rows);
        MainWindowController *const window = open();
        window->mainWindow()->activateWindow();
        turn();
        window->mainWindow()->table()->selectAll();
        turn();
        editor(window, 1)->input()->setFocus();
        type(editor(window, 1)->input(), typed);
        return window;
    }
    QString storedVisits(qint64 record) { return stored(record, 1, u"Many"_s); }
};
} // namespace

TEST_F(ManyInputTests, ClosingWaitsForTheAnswer)
{
    MainWindowController *const window = openWithAll(u"99"_s);
    window->closeWindow();
    turn();
    ASSERT_EQ(application->windows().size(), 1);
    EXPECT_EQ(storedVisits(25), u"25"_s);
    answer(u"Set"_s);
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_EQ(storedVisits(1), u"99"_s);
    EXPECT_EQ(storedVisits(25), u"99"_s);
}

TEST_F(ManyInputTests, ClosingGoesOnWhereNothingIsSet)
{
    MainWindowController *const window = openWithAll(u"99"_s);
    window->closeWindow();
    answer(u"Cancel"_s);
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
    EXPECT_EQ(storedVisits(25), u"25"_s);
}

TEST_F(ManyInputTests, DeletingWaitsForTheAnswer)
{
    MainWindowController *const window = openWithAll(u"99"_s);
    window->deleteRecords();
    turn();
    EXPECT_EQ(window->model()->rowCount(), 25);
    answer(u"Set"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    menuItem(window, "undoChange:")->trigger();
    EXPECT_EQ(storedVisits(25), u"99"_s);
}

TEST_F(ManyInputTests, WhatCannotBeReadIsNotAskedAbout)
{
    MainWindowController *const window = openWithAll(u"a cow"_s);
    QTest::keyClick(editor(window, 1)->input(), Qt::Key_Return);
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_FALSE(editor(window, 1)->problem().isEmpty());
    window->closeWindow();
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_TRUE(alertBox()->text().contains(u"“a cow”"));
    answer(u"Discard"_s);
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
}
