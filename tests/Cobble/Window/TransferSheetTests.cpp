// The sheets and alerts of the host's main window.

#include "WindowSupport.h"

#include "Window/SilencedAlerts.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTWindowManager>
#include <KTUtility/NSApplication>
#include <KTUtility/NSMenuItem>
#include <KTUtility/NSURL>

#include <QCheckBox>
#include <QMessageBox>
#include <QProgressBar>
#include <QStatusBar>
#include <QTableWidget>

using namespace Qt::StringLiterals;

using testing_support::contentsOf;

class SheetTest : public HostWindowTest
{
protected:
    static QMessageBox *alertBox()
    {
        for (QWidget *const window : QApplication::topLevelWidgets()) {
            auto *const box = qobject_cast<QMessageBox *>(window);
            if (box && box->isVisible())
                return box;
        }
        return nullptr;
    }
    static QWidget *openImport(MainWindowController *window)
    {
        window->importFile();
        turn();
        return window->importSheet()->window();
    }
    static QLineEdit *field(QWidget *sheet, const QString &name)
    {
        return sheet->findChild<QLineEdit *>(name);
    }
    /// Imports a file through the sheet.
    static void importThrough(MainWindowController *window, const QString &path)
    {
        QWidget *const sheet = openImport(window);
        type(field(sheet, u"fileEdit"_s), path);
        QTest::keyClick(field(sheet, u"fileEdit"_s), Qt::Key_Return);
        turn();
    }
    QString path(const QString &name) const { return tree.path(name); }
};

// --- Import -------------------------------------------------------------------------------------

TEST_F(SheetTest, TwoDialogsFollowAnImport)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet,Age\nCat,3\nDog,many\nHen,4\nOwl,5\nPig,6\nEel,7\n"
                            "Ant,8\nApe,9\nBat,1\nBee,2\nCow,3\nElk,4\n");
    importThrough(window, path(u"Pets.csv"_s));
    EXPECT_FALSE(window->importSheet()->isRunningAsDialog());
    QWidget *const summary = window->importSummary()->window();
    ASSERT_TRUE(summary->isVisible());
    EXPECT_TRUE(NSApplication::isSheet(summary));
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(summary->findChild<QLabel *>(u"titleLabel"_s)->text(),
              u"Stored 12 records in the library “Pets”."_s);
    const auto *const columns = summary->findChild<QTableWidget *>(u"columnsTable"_s);
    EXPECT_EQ(columns->item(1, 1)->text(), u"number"_s);
    EXPECT_EQ(columns->item(1, 3)->text(), u"1"_s);
    const auto *const unread = summary->findChild<QTableWidget *>(u"unreadTable"_s);
    ASSERT_EQ(unread->rowCount(), 1);
    EXPECT_EQ(unread->item(0, 2)->text(), u"many"_s);
    QTest::keyClick(summary, Qt::Key_Return);
    EXPECT_FALSE(summary->isVisible());
    turn();
    QMessageBox *const question = alertBox();
    ASSERT_NE(question, nullptr);
    EXPECT_EQ(question->text(), u"Show the library “Pets” now?"_s);
    EXPECT_EQ(librariesIn(window), QStringList({u"Pets"_s, u"Things"_s}));
    QTest::keyClick(question, Qt::Key_Return);
    turn();
    EXPECT_EQ(window->library()->definition().name, u"Pets"_s);
    EXPECT_EQ(countIn(window), u"12 records"_s);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(SheetTest, TheQuestionMayBeDenied)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, "Pet\nCat\n");
    importThrough(window, path(u"Pets.csv"_s));
    QTest::keyClick(window->importSummary()->window(), Qt::Key_Escape);
    turn();
    ASSERT_NE(alertBox(), nullptr);
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(SheetTest, ALibraryIsReplacedUnderItsWindows)
{
    MainWindowController *const window = openThings();
    MainWindowController *const other = open();
    tree.add(u"New.csv"_s, "Name\nZoe\n");
    QWidget *const sheet = openImport(window);
    type(field(sheet, u"fileEdit"_s), path(u"New.csv"_s));
    type(field(sheet, u"nameEdit"_s), u"Things"_s);
    sheet->findChild<QCheckBox *>(u"replaceBox"_s)->setChecked(true);
    press(sheet, u"Import"_s);
    turn();
    EXPECT_EQ(column(window, 0), QStringList(u"Zoe"_s));
    EXPECT_EQ(column(other, 0), QStringList(u"Zoe"_s));
    // What is shown already need not be asked about.
    window->importSummary()->endDialog();
    turn();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(SheetTest, WhatCannotBeImportedIsToldInTheSheet)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    press(sheet, u"Import"_s);
    EXPECT_EQ(window->importSheet()->problem(), u"Please choose a file."_s);
    for (const auto &[name, reason] :
         {std::pair(u"missing.csv"_s, u"No such file"_s), std::pair(u"."_s, u"is a folder"_s)}) {
        type(field(sheet, u"fileEdit"_s), path(name));
        press(sheet, u"Import"_s);
        EXPECT_TRUE(window->importSheet()->problem().contains(reason, Qt::CaseInsensitive))
            << window->importSheet()->problem().toStdString();
        EXPECT_TRUE(sheet->isVisible());
    }
    QTest::keyClick(sheet, Qt::Key_Escape);
    turn();
    EXPECT_FALSE(window->continueRunningQueue());
    // The next time it begins anew.
    sheet->findChild<QCheckBox *>(u"replaceBox"_s)->setChecked(true);
    field(sheet, u"nameEdit"_s)->setText(u"Things"_s);
    openImport(window);
    EXPECT_EQ(window->importSheet()->problem(), QString());
    EXPECT_EQ(window->importSheet()->file(), QString());
    EXPECT_EQ(field(sheet, u"nameEdit"_s)->text(), QString());
    EXPECT_FALSE(sheet->findChild<QCheckBox *>(u"replaceBox"_s)->isChecked());
    window->importSheet()->endDialog();
    turn();
}

TEST_F(SheetTest, AnImportCanBeCancelled)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Number,Text\n";
    for (int row = 0; row < 500; ++row)
        rows += QByteArray::number(row) + ",text\n";
    tree.add(u"Long.csv"_s, rows);
    QWidget *const sheet = openImport(window);
    window->importSheet()->setLookInterval(0);
    field(sheet, u"fileEdit"_s)->setText(path(u"Long.csv"_s));
    bool wasWorking = false;
    // By its own button, while the rest is not to be touched.
    QMetaObject::invokeMethod(
        sheet,
        [&] {
            wasWorking = window->importSheet()->isWorking() &&
                         sheet->findChild<QProgressBar *>()->isVisible() &&
                         !button(sheet, u"Import"_s)->isEnabled() &&
                         application->bundle()->isBusy();
            press(sheet, u"Cancel"_s);
        },
        Qt::QueuedConnection);
    window->importSheet()->go();
    EXPECT_TRUE(wasWorking);
    EXPECT_EQ(window->importSheet()->problem(), u"Cancelled. Nothing was stored."_s);
    EXPECT_FALSE(application->bundle()->isBusy());
    EXPECT_TRUE(sheet->isVisible());
    application->bundle()->reload();
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    window->importSheet()->endDialog();
    turn();
}

TEST_F(SheetTest, EscapeAndClosingCancelTheWorkFirst)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Number\n";
    for (int row = 0; row < 500; ++row)
        rows += QByteArray::number(row) + '\n';
    tree.add(u"Long.csv"_s, rows);
    const std::function<void(QWidget *)> ways[] = {
        [](QWidget *sheet) { QTest::keyClick(sheet, Qt::Key_Escape); },
        [](QWidget *sheet) { sheet->close(); },
    };
    for (const auto &way : ways) {
        QWidget *const sheet = openImport(window);
        window->importSheet()->setLookInterval(0);
        field(sheet, u"fileEdit"_s)->setText(path(u"Long.csv"_s));
        QMetaObject::invokeMethod(
            sheet, [&] { way(sheet); }, Qt::QueuedConnection);
        window->importSheet()->go();
        EXPECT_TRUE(sheet->isVisible());
        EXPECT_EQ(window->importSheet()->problem(), u"Cancelled. Nothing was stored."_s);
        way(sheet);
        turn();
        EXPECT_FALSE(sheet->isVisible());
    }
}

TEST_F(SheetTest, OneWindowImportsAtATime)
{
    MainWindowController *const window = openThings();
    application->bundle()->setBusy(true);
    QWidget *const sheet = openImport(window);
    field(sheet, u"fileEdit"_s)->setText(path(u"Things.csv"_s));
    press(sheet, u"Import"_s);
    EXPECT_TRUE(window->importSheet()->problem().contains(u"Another window"));
    EXPECT_TRUE(application->bundle()->isBusy());
    application->bundle()->setBusy(false);
    window->importSheet()->endDialog();
    turn();
}

TEST_F(SheetTest, OpeningASheetTwiceShowsItOnce)
{
    MainWindowController *const window = openThings();
    openImport(window);
    window->importFile();
    EXPECT_TRUE(window->dialogQueue().isEmpty());
    window->importSheet()->endDialog();
    turn();
    EXPECT_FALSE(window->continueRunningQueue());
}

// --- Export -------------------------------------------------------------------------------------

TEST_F(SheetTest, ExportsWhatIsShown)
{
    MainWindowController *const window = openThings();
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    EXPECT_TRUE(field(sheet, u"fileEdit"_s)->text().endsWith(u"/Things.csv"));
    type(field(sheet, u"fileEdit"_s), path(u"out.csv"_s));
    press(sheet, u"Export"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(contentsOf(path(u"out.csv"_s)).contains("Ann,7,$5.50,3/4/2008,"));
    EXPECT_TRUE(
        window->mainWindow()->statusBar()->currentMessage().startsWith(u"Exported 4 records to "));
}

TEST_F(SheetTest, WhatCannotBeExportedIsToldInTheSheet)
{
    MainWindowController *const window = openThings();
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    type(field(sheet, u"fileEdit"_s), path(u"out.zip"_s));
    press(sheet, u"Export"_s);
    EXPECT_TRUE(window->exportSheet()->problem().contains(u"no exporter for 'zip'"));
    type(field(sheet, u"fileEdit"_s), path(u"missing/out.csv"_s));
    press(sheet, u"Export"_s);
    EXPECT_TRUE(window->exportSheet()->problem().contains(u"missing/out.csv"));
    press(sheet, u"Cancel"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(SheetTest, AnExportCanBeCancelled)
{
    MainWindowController *const window = openThings();
    tree.add(u"out.csv"_s, "old");
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    window->exportSheet()->setLookInterval(0);
    field(sheet, u"fileEdit"_s)->setText(path(u"out.csv"_s));
    // It asks before it replaces a file.
    window->exportSheet()->go();
    EXPECT_EQ(window->exportSheet()->problem(),
              u"There is a file of that name. Export once more to replace it."_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    QMetaObject::invokeMethod(window->exportSheet(), &TransferSheet::cancel, Qt::QueuedConnection);
    window->exportSheet()->go();
    EXPECT_EQ(window->exportSheet()->problem(), u"Cancelled. The file was not written."_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    window->exportSheet()->endDialog();
    turn();
}

TEST_F(SheetTest, AFileIsReplacedWhenThatIsAskedForTwice)
{
    MainWindowController *const window = openThings();
    tree.add(u"out.csv"_s, "old");
    window->exportFile();
    turn();
    QWidget *const sheet = window->exportSheet()->window();
    field(sheet, u"fileEdit"_s)->setText(path(u"out.csv"_s));
    press(sheet, u"Export"_s);
    EXPECT_EQ(contentsOf(path(u"out.csv"_s)), "old");
    press(sheet, u"Export"_s);
    turn();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_TRUE(contentsOf(path(u"out.csv"_s)).startsWith("Name,Visits"));
}

TEST_F(SheetTest, TheKeyboardStaysWhereItWasAfterAMistake)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    sheet->activateWindow();
    turn();
    QLineEdit *const file = field(sheet, u"fileEdit"_s);
    file->setFocus();
    QTest::keyClicks(file, u"/no such file"_s);
    QTest::keyClick(file, Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), file);
    EXPECT_EQ(file->accessibleDescription(), window->importSheet()->problem());
    EXPECT_FALSE(file->accessibleDescription().isEmpty());
    window->importSheet()->endDialog();
    turn();
}

TEST_F(SheetTest, AWindowStaysWhileItsSheetWorks)
{
    MainWindowController *const window = openThings();
    window->importFile();
    turn();
    window->importSheet()->setLookInterval(0);
    tree.add(u"Pets.csv"_s, "Pet\nCat\nDog\n");
    field(window->importSheet()->window(), u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    bool wasAllowed = true;
    QMetaObject::invokeMethod(
        window,
        [&] {
            wasAllowed = window->validateMenuItem(menuItem(window, "closeWindow:"));
            window->closeWindow();
        },
        Qt::QueuedConnection);
    window->importSheet()->go();
    turn();
    EXPECT_FALSE(wasAllowed);
    EXPECT_EQ(application->windows().size(), 1);
    EXPECT_EQ(librariesIn(window).size(), 2);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

TEST_F(SheetTest, HugeValuesAreShortInTheSummary)
{
    MainWindowController *const window = openThings();
    QByteArray rows = "Age\n";
    for (int row = 0; row < 20; ++row)
        rows += QByteArray::number(row) + '\n';
    tree.add(u"Pets.csv"_s, rows + QByteArray(1 << 20, 'x') + '\n');
    importThrough(window, path(u"Pets.csv"_s));
    const auto *const unread =
        window->importSummary()->window()->findChild<QTableWidget *>(u"unreadTable"_s);
    ASSERT_EQ(unread->rowCount(), 1);
    EXPECT_LT(unread->item(0, 2)->text().size(), 400);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
}

// --- Deleting -----------------------------------------------------------------------------------

TEST_F(SheetTest, DeletingAsksFirst)
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

TEST_F(SheetTest, TheQuestionCanBeSilencedAndHeardAgain)
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

TEST_F(SheetTest, MediaOfDeletedRecordsGoUnlessOthersHaveThem)
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

TEST_F(SheetTest, DeletingIsAllOrNothing)
{
    MainWindowController *const window = openThings();
    KTDoNotShowAlert::setBoolForSuppressionKey(MainWindowController::DeleteSuppressionKey, true);
    QString error;
    const auto store = LibraryStore::open(bundle, LibraryStore::Mode::Existing, &error);
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

TEST_F(SheetTest, RecordsThatGoMeanwhileAreNotDeletedTwice)
{
    MainWindowController *const first = openThings();
    MainWindowController *const second = open();
    first->deleteRecords();
    turn();
    EXPECT_EQ(second->library()->removeRecords({second->model()->recordAt(0)}), QString());
    press(alertBox(), u"Delete"_s);
    turn();
    EXPECT_EQ(countIn(first), u"3 records"_s);
    EXPECT_EQ(countIn(second), u"3 records"_s);
}

// --- The program --------------------------------------------------------------------------------

TEST_F(SheetTest, QuittingWaitsForTheSheetThatHasTheKeyboard)
{
    MainWindowController *const window = openThings();
    QAction *const quit = menuItem(window, "terminate:");
    EXPECT_TRUE(application->validateMenuItem(quit));
    QWidget *const sheet = openImport(window);
    sheet->activateWindow();
    turn();
    ASSERT_EQ(QApplication::activeWindow(), sheet);
    EXPECT_FALSE(application->validateMenuItem(quit));
    quit->trigger();
    turn();
    EXPECT_EQ(application->windows().size(), 1);
    EXPECT_TRUE(application->validateMenuItem(menuItem(window, "newWindow:")));
    QTest::keyClick(sheet, Qt::Key_Escape);
    turn();
    window->mainWindow()->activateWindow();
    turn();
    quit->trigger();
    turn();
    EXPECT_TRUE(application->windows().isEmpty());
}

TEST_F(SheetTest, TheVersionIsShownAboutTheProgram)
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

TEST_F(SheetTest, TabsGoThroughTheSheetInOrder)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    sheet->activateWindow();
    turn();
    QStringList visited;
    for (int press = 0; press < 6; ++press) {
        visited += QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(visited, QStringList({u"fileEdit"_s, u"chooseButton"_s, u"nameEdit"_s,
                                    u"replaceBox"_s, u"goButton"_s, u"cancelButton"_s}));
    window->importSheet()->endDialog();
    turn();
}
