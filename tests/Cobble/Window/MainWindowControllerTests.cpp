// What the commands of a main window ask and report.

#include "SheetSupport.h"
#include "Window/SilencedAlerts.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTWindowManager>

#include <QCheckBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

using MainWindowControllerTests = HostSheetTest;

TEST_F(MainWindowControllerTests, DeletingAsksFirst)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndexes({0, 3});
    menuItem(window, "deleteRecords:")->trigger();
    turn();
    QMessageBox *const question = alertBox();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->text(), u"Delete 2 records?"_s);
    QTest::keyClick(question, Qt::Key_Escape);
    turn();
    EXPECT_EQ(countIn(window), u"4 records"_s);
    window->deleteRecords();
    turn();
    press(alertBox(), u"Delete"_s);
    turn();
    EXPECT_EQ(column(window, 0), QStringList({u"Bjørn"_s, u"Céline"_s}));
    EXPECT_EQ(stored(1, 0), QString());
    EXPECT_EQ(stored(2, 0), u"Bjørn"_s);
    EXPECT_EQ(window->mainWindow()->statusBar()->currentMessage(), u"Deleted 2 records"_s);
}

TEST_F(MainWindowControllerTests, TheQuestionCanBeSilencedAndHeardAgain)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndex(0);
    window->deleteRecords();
    turn();
    alertBox()->checkBox()->setChecked(true);
    press(alertBox(), u"Delete"_s);
    turn();
    // The next one is selected.
    EXPECT_EQ(window->records()->selectionIndex(), 0);
    window->deleteRecords();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(countIn(window), u"2 records"_s);

    menuItem(window, "showSilencedAlerts:")->trigger();
    turn();
    auto *const dialog = qobject_cast<SilencedAlerts *>(
        KTWindowManager::sharedWindowManager()->dialogControllerForKey(u"SilencedAlerts"_s));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->hostWindowController(), window);
    auto *const list = dialog->window()->findChild<QListWidget *>();
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), u"Delete 1 record?"_s);
    EXPECT_FALSE(button(dialog->window(), u"Show Again"_s)->isEnabled());
    list->setCurrentRow(0);
    press(dialog->window(), u"Show Again"_s);
    EXPECT_EQ(list->count(), 0);
    press(dialog->window(), u"Close"_s);
    turn();
    EXPECT_FALSE(
        KTDoNotShowAlert::boolForSuppressionKey(MainWindowController::DeleteSuppressionKey));
    window->deleteRecords();
    turn();
    ASSERT_NE(alertBox(), nullptr);
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(MainWindowControllerTests, MediaOfDeletedRecordsGoUnlessOthersHaveThem)
{
    tree.add(u"a.png"_s, "a");
    tree.add(u"b.png"_s, "b");
    import(u"Pictures.csv"_s, "Name,Picture\nA," + tree.path(u"a.png"_s).toUtf8() + "\nB," +
                                  tree.path(u"b.png"_s).toUtf8() + "\nC,\n");
    MainWindowController *const window = open();
    ASSERT_TRUE(bundle.isFileNameInMediaFolder(u"a.0.png"_s));
    // The third has the picture of the second, too.
    FormRecord *const third = window->model()->recordAt(2);
    ASSERT_TRUE(third->setValueForKey(window->library()->value(*window->model()->recordAt(1), 1),
                                      window->library()->definition().fields.at(1).columnName));
    KTDoNotShowAlert::setBoolForSuppressionKey(MainWindowController::DeleteSuppressionKey, true);
    window->records()->setSelectionIndexes({0, 1});
    window->deleteRecords();
    EXPECT_EQ(countIn(window), u"1 record"_s);
    EXPECT_FALSE(bundle.isFileNameInMediaFolder(u"a.0.png"_s));
    EXPECT_TRUE(bundle.isFileNameInMediaFolder(u"b.0.png"_s));
}

TEST_F(MainWindowControllerTests, DeletingIsAllOrNothing)
{
    MainWindowController *const window = openThings();
    KTDoNotShowAlert::setBoolForSuppressionKey(MainWindowController::DeleteSuppressionKey, true);
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(store->removeRecord(*store->libraryNamed(u"Things"_s), 4));
    window->mainWindow()->table()->selectAll();
    window->deleteRecords();
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().contains(
        u"another program has changed the database"));
    EXPECT_EQ(stored(1, 0), u"Ann"_s);
    // What the other program has left is shown now.
    turn();
    EXPECT_EQ(countIn(window), u"3 records"_s);
}

TEST_F(MainWindowControllerTests, RecordsThatGoMeanwhileAreNotDeletedTwice)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    first->deleteRecords();
    turn();
    EXPECT_TRUE(second->library()->removeRecords({second->model()->recordAt(0)}));
    press(alertBox(), u"Delete"_s);
    turn();
    EXPECT_EQ(countIn(first), u"3 records"_s);
    EXPECT_EQ(countIn(second), u"3 records"_s);
}

TEST_F(MainWindowControllerTests, TheVersionIsShownAboutTheProgram)
{
    MainWindowController *const window = openThings();
    menuItem(window, "showAbout:")->trigger();
    turn();
    ASSERT_NE(alertBox(), nullptr);
    EXPECT_EQ(alertBox()->text(), QStringLiteral("Cobble " COBBLE_VERSION));
    QTest::keyClick(alertBox(), Qt::Key_Return);
    turn();
    EXPECT_EQ(alertBox(), nullptr);
}
