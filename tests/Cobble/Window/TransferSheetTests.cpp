// What the sheets of a main window have in common.

#include "SheetSupport.h"

#include "Editing/TextInput.h"
#include "Window/FieldDelegate.h"

#include <KTUtility/NSApplication>

#include <QApplication>
#include <QProgressBar>
#include <QTableWidget>

#include <functional>

using namespace Qt::StringLiterals;

using TransferSheetTests = HostSheetTest;

TEST_F(TransferSheetTests, OpeningASheetTwiceShowsItOnce)
{
    MainWindowController *const window = openThings();
    openImport(window);
    window->importFile();
    EXPECT_TRUE(window->dialogQueue().isEmpty());
    window->importSheet()->endDialog();
    turn();
    EXPECT_FALSE(window->continueRunningQueue());
}

TEST_F(TransferSheetTests, TheKeyboardStaysWhereItWasAfterAMistake)
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

TEST_F(TransferSheetTests, AWindowStaysWhileItsSheetWorks)
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

TEST_F(TransferSheetTests, QuittingWaitsForTheSheetThatHasTheKeyboard)
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

TEST_F(TransferSheetTests, TabsGoThroughTheSheetInOrder)
{
    MainWindowController *const window = openThings();
    QWidget *const sheet = openImport(window);
    sheet->activateWindow();
    turn();
    QStringList visited;
    for (int press = 0; press < 12; ++press) {
        visited += QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    // What chooses for a column waits for a file.
    EXPECT_EQ(visited,
              QStringList({u"fileEdit"_s, u"chooseButton"_s, u"nameEdit"_s, u"replaceBox"_s,
                           u"separatorBox"_s, u"encodingBox"_s, u"localeBox"_s, u"headersBox"_s,
                           u"mediaEdit"_s, u"previewTable"_s, u"rejectedTable"_s, u"goButton"_s}));
    window->importSheet()->endDialog();
    turn();
}

namespace {
/// Calls at the first moment at which the window below a sheet can be used.
void onceReleased(QWidget *sheet, const std::function<void()> &perform)
{
    QMetaObject::invokeMethod(
        sheet,
        [sheet, perform] {
            if (NSApplication::isSheet(sheet))
                onceReleased(sheet, perform);
            else
                perform();
        },
        Qt::QueuedConnection);
}

/// An import that lets its window be used at once.
void releaseAtOnce(ImportSheet *sheet)
{
    sheet->setLookInterval(0);
    sheet->setReleaseDelay(-1);
}

QByteArray manyRows()
{
    QByteArray rows = "Number,Text\n";
    for (int row = 0; row < 500; ++row)
        rows += QByteArray::number(row) + ",text\n";
    return rows;
}
} // namespace

TEST_F(TransferSheetTests, AWindowIsUsedWhileItsSheetImports)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, manyRows());
    QWidget *const sheet = openImport(window);
    const QSize size = sheet->size();
    releaseAtOnce(window->importSheet());
    field(sheet, u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    int looks = 0;
    onceReleased(sheet, [&] {
        ++looks;
        EXPECT_TRUE(window->importSheet()->isWorking());
        EXPECT_TRUE(sheet->findChild<QProgressBar *>()->isVisible());
        EXPECT_TRUE(button(sheet, u"Cancel"_s)->isVisible());
        EXPECT_FALSE(sheet->findChild<QTableWidget *>(u"previewTable"_s)->isVisible());
        EXPECT_LT(sheet->height(), size.height() / 2);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        EXPECT_FALSE(window->validateMenuItem(menuItem(window, "importFile:")));
        EXPECT_FALSE(window->validateMenuItem(menuItem(window, "exportFile:")));
        window->importFile();
        window->exportFile();
        window->importFileAtPath(path(u"Things.csv"_s));
        QTest::mouseClick(
            window->mainWindow()->table()->viewport(), Qt::LeftButton, {},
            window->mainWindow()->table()->visualRect(window->model()->index(2, 0)).center());
        EXPECT_EQ(window->records()->selectionIndex(), 2);
    });
    window->importSheet()->go();
    turn();
    EXPECT_EQ(looks, 1);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(librariesIn(window), QStringList({u"Pets"_s, u"Things"_s}));
    EXPECT_EQ(window->records()->selectionIndex(), 2);
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    // The next one is whole, and asks for another file.
    openImport(window);
    EXPECT_TRUE(NSApplication::isSheet(sheet));
    EXPECT_TRUE(sheet->findChild<QTableWidget *>(u"previewTable"_s)->isVisible());
    EXPECT_EQ(sheet->size(), size);
    EXPECT_EQ(window->importSheet()->file(), QString());
    window->importSheet()->endDialog();
    turn();
    EXPECT_TRUE(window->dialogQueue().isEmpty());
}

TEST_F(TransferSheetTests, ASheetThatIsCancelledBlocksItsWindowAgain)
{
    MainWindowController *const window = openThings();
    tree.add(u"Long.csv"_s, manyRows());
    QWidget *const sheet = openImport(window);
    releaseAtOnce(window->importSheet());
    field(sheet, u"fileEdit"_s)->setText(path(u"Long.csv"_s));
    onceReleased(sheet, [&] { QTest::keyClick(sheet, Qt::Key_Escape); });
    window->importSheet()->go();
    EXPECT_EQ(window->importSheet()->problem(), u"Cancelled. Nothing was stored."_s);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_TRUE(NSApplication::isSheet(sheet));
    EXPECT_TRUE(window->importSheet()->isRunningAsDialog());
    EXPECT_TRUE(sheet->findChild<QTableWidget *>(u"previewTable"_s)->isVisible());
    EXPECT_TRUE(field(sheet, u"fileEdit"_s)->isEnabled());
    EXPECT_EQ(window->importSheet()->file(), path(u"Long.csv"_s));
    QTest::keyClick(sheet, Qt::Key_Escape);
    turn();
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(TransferSheetTests, AnEditorThatNobodyTypedIntoIsNotOpenedAgain)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    window->mainWindow()->table()->setCurrentIndex(window->model()->index(0, 0));
    window->mainWindow()->table()->edit(window->model()->index(0, 0));
    ASSERT_FALSE(window->mainWindow()->table()->viewport()->findChildren<TextInput *>().isEmpty());
    EXPECT_EQ(window->mainWindow()->cells()->typed(), std::nullopt);
    runInProcess(
        {u"set"_s, u"Things"_s, u"1"_s, u"Name=Bea"_s, u"--bundle"_s, bundle.bundlePath()});
    application->bundle()->reload();
    turn();
    EXPECT_EQ(cell(window, 0, 0), u"Bea"_s);
    for (const TextInput *const editor :
         window->mainWindow()->table()->viewport()->findChildren<TextInput *>())
        EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(stored(1, 0), u"Bea"_s);
}

TEST_F(TransferSheetTests, WhatIsTypedDuringAnImportIsStoredAfterIt)
{
    MainWindowController *const window = openThings();
    tree.add(u"Pets.csv"_s, manyRows());
    QWidget *const sheet = openImport(window);
    releaseAtOnce(window->importSheet());
    field(sheet, u"fileEdit"_s)->setText(path(u"Pets.csv"_s));
    onceReleased(sheet, [&] {
        window->mainWindow()->table()->setCurrentIndex(window->model()->index(0, 0));
        window->mainWindow()->table()->edit(window->model()->index(0, 0));
        type(window->mainWindow()->table()->viewport()->findChildren<TextInput *>().last(),
             u"Anna"_s);
    });
    window->importSheet()->go();
    turn();
    window->importSummary()->endDialog();
    turn();
    QTest::keyClick(alertBox(), Qt::Key_Escape);
    turn();
    EXPECT_EQ(window->mainWindow()->cells()->typed(), u"Anna"_s);
    QTest::keyClick(window->mainWindow()->table()->viewport()->findChildren<TextInput *>().last(),
                    Qt::Key_Return);
    turn();
    EXPECT_EQ(stored(1, 0), u"Anna"_s);
}
