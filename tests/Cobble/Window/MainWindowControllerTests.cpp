// What the commands of a main window ask and report.

#include "SheetSupport.h"
#include "Window/SilencedAlerts.h"

#include <KTUtility/KTDoNotShowAlert>
#include <KTUtility/KTWindowManager>

#include <QCheckBox>
#include <QStatusBar>

using namespace Qt::StringLiterals;

using MainWindowControllerTests = HostSheetTest;

TEST_F(MainWindowControllerTests, DeletingNeedsNoQuestion)
{
    MainWindowController *const window = openThings();
    window->records()->setSelectionIndexes({0, 3});
    menuItem(window, "deleteRecords:")->trigger();
    EXPECT_EQ(alertBox(), nullptr);
    EXPECT_EQ(column(window, 0), QStringList({u"Bjørn"_s, u"Céline"_s}));
    EXPECT_EQ(stored(1, 0), QString());
    EXPECT_EQ(stored(2, 0), u"Bjørn"_s);
    EXPECT_EQ(window->mainWindow()->statusBar()->currentMessage(), u"Deleted 2 records"_s);
    // The next one is selected.
    EXPECT_EQ(window->records()->selectionIndex(), 0);
    EXPECT_FALSE(menuItem(window, "deleteRecords:")->text().contains(u'…'));
}

TEST_F(MainWindowControllerTests, SilencedAlertsCanBeHeardAgain)
{
    MainWindowController *const window = openThings();
    KTDoNotShowAlert::beginCriticalAlertSheet({.title = u"Sure?"_s,
                                               .defaultButton = u"Yes"_s,
                                               .alternateButton = QString(),
                                               .otherButton = QString(),
                                               .window = window->mainWindow(),
                                               .modalDelegate = nullptr,
                                               .didEndSelector = {},
                                               .contextInfo = nullptr,
                                               .msg = u"Really."_s,
                                               .suppressionKey = u"sure"_s});
    turn();
    alertBox()->checkBox()->setChecked(true);
    press(alertBox(), u"Yes"_s);
    turn();
    menuItem(window, "showSilencedAlerts:")->trigger();
    turn();
    auto *const dialog = qobject_cast<SilencedAlerts *>(
        KTWindowManager::sharedWindowManager()->dialogControllerForKey(u"SilencedAlerts"_s));
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->hostWindowController(), window);
    auto *const list = dialog->window()->findChild<QListWidget *>();
    ASSERT_EQ(list->count(), 1);
    EXPECT_EQ(list->item(0)->text(), u"Sure?"_s);
    EXPECT_FALSE(button(dialog->window(), u"Show Again"_s)->isEnabled());
    list->setCurrentRow(0);
    press(dialog->window(), u"Show Again"_s);
    EXPECT_EQ(list->count(), 0);
    press(dialog->window(), u"Close"_s);
    turn();
    EXPECT_FALSE(KTDoNotShowAlert::boolForSuppressionKey(u"sure"_s));
}

TEST_F(MainWindowControllerTests, DeletingIsAllOrNothing)
{
    MainWindowController *const window = openThings();
    const auto store = *LibraryStore::open(bundle, LibraryStore::Mode::Existing);
    ASSERT_TRUE(store->removeRecord(*store->libraryNamed(u"Things"_s), 4));
    window->mainWindow()->table()->selectAll();
    window->deleteRecords();
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().contains(
        u"Another program has changed the database"));
    EXPECT_EQ(stored(1, 0), u"Ann"_s);
    // What the other program has left is shown now.
    turn();
    EXPECT_EQ(countIn(window), u"3 records"_s);
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
