// What the sheets of a main window have in common.

#include "SheetSupport.h"

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
