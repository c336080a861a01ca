#include "Making/LibraryActions.h"

#include "Cobble/Window/SheetSupport.h"
#include "Making/NameSheet.h"

#include <QComboBox>
#include <QHeaderView>

using namespace Qt::StringLiterals;

namespace {
class LibraryActionsTests : public HostSheetTest
{
protected:
    /// Chooses an item of the menu.
    /// \return the sheet that it opens.
    static NameSheet *openSheet(MainWindowController *window, const char *action)
    {
        menuItem(window, action)->trigger();
        turn();
        return sheetOf(window);
    }
    static NameSheet *sheetOf(MainWindowController *window)
    {
        for (NameSheet *const sheet : window->mainWindow()->findChildren<NameSheet *>()) {
            if (sheet->isVisible())
                return sheet;
        }
        return nullptr;
    }
    static void answer(NameSheet *sheet, const QString &name)
    {
        type(field(sheet, u"nameEdit"_s), name);
        QTest::keyClick(field(sheet, u"nameEdit"_s), Qt::Key_Return);
        turn();
    }
    static QStringList fieldsIn(MainWindowController *window)
    {
        QStringList titles;
        for (const LibraryField &each : window->library()->definition().fields)
            titles += each.title();
        return titles;
    }
    static void undo(MainWindowController *window)
    {
        window->undoChange();
        turn();
    }
};
} // namespace

TEST_F(LibraryActionsTests, ALibraryIsMadeAndShown)
{
    MainWindowController *const window = openThings();
    answer(openSheet(window, "newLibrary:"), u"Pets"_s);
    EXPECT_EQ(sheetOf(window), nullptr);
    EXPECT_EQ(librariesIn(window), QStringList({u"Pets"_s, u"Things"_s}));
    EXPECT_EQ(window->library()->definition().name, u"Pets"_s);
    EXPECT_EQ(fieldsIn(window), QStringList(u"Name"_s));
    undo(window);
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
}

TEST_F(LibraryActionsTests, TheFirstLibraryMakesTheBundle)
{
    MainWindowController *const window = open();
    EXPECT_FALSE(bundle.doesExist());
    answer(openSheet(window, "newLibrary:"), u"Pets"_s);
    EXPECT_EQ(librariesIn(window), QStringList(u"Pets"_s));
    EXPECT_TRUE(bundle.doesExist());
}

TEST_F(LibraryActionsTests, ANameThatIsTakenIsRefusedInTheSheet)
{
    MainWindowController *const window = openThings();
    NameSheet *const sheet = openSheet(window, "newLibrary:");
    answer(sheet, u"things"_s);
    ASSERT_EQ(sheetOf(window), sheet);
    EXPECT_EQ(sheet->findChild<QLabel *>(u"problemLabel"_s)->text(),
              u"there is a library of that name"_s);
    QTest::keyClick(sheet, Qt::Key_Escape);
    turn();
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
}

TEST_F(LibraryActionsTests, ALibraryIsRenamedUnderItsWindows)
{
    MainWindowController *const window = openThings();
    MainWindowController *const other = open();
    NameSheet *const sheet = openSheet(window, "renameLibrary:");
    EXPECT_EQ(field(sheet, u"nameEdit"_s)->text(), u"Things"_s);
    answer(sheet, u"Stuff"_s);
    for (MainWindowController *const each : {window, other}) {
        EXPECT_EQ(librariesIn(each), QStringList(u"Stuff"_s));
        EXPECT_EQ(each->library()->definition().name, u"Stuff"_s);
        EXPECT_EQ(countIn(each), u"4 records"_s);
    }
    undo(window);
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
}

TEST_F(LibraryActionsTests, ALibraryIsRemovedAndComesBack)
{
    MainWindowController *const window = openThings();
    menuItem(window, "removeLibrary:")->trigger();
    turn();
    EXPECT_EQ(librariesIn(window), QStringList());
    EXPECT_EQ(window->library(), nullptr);
    undo(window);
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    EXPECT_EQ(stored(1, 0), u"Ann"_s);
}

TEST_F(LibraryActionsTests, AFieldIsAdded)
{
    MainWindowController *const window = openThings();
    NameSheet *const sheet = openSheet(window, "newField:");
    auto *const types = sheet->findChild<QComboBox *>(u"typeBox"_s);
    EXPECT_EQ(field(sheet, u"nameEdit"_s)->nextInFocusChain(), types);
    types->setFocus();
    QTest::keyClicks(types, u"Num"_s);
    answer(sheet, u"Size"_s);
    EXPECT_EQ(fieldsIn(window),
              QStringList({u"Name"_s, u"Visits"_s, u"Paid"_s, u"Since"_s, u"Notes"_s, u"Size"_s}));
    EXPECT_EQ(window->library()->definition().fields.last().type, FieldType::Number);
    EXPECT_EQ(window->model()->columnCount(), 6);
    undo(window);
    EXPECT_EQ(fieldsIn(window).size(), 5);
}

TEST_F(LibraryActionsTests, ContextMenusHaveTheSameItems)
{
    MainWindowController *const window = openThings();
    EXPECT_EQ(
        window->mainWindow()->libraries()->actions(),
        QList<QAction *>({menuItem(window, "newLibrary:"), menuItem(window, "renameLibrary:"),
                          menuItem(window, "editFields:"), menuItem(window, "removeLibrary:")}));
    EXPECT_EQ(window->mainWindow()->table()->horizontalHeader()->actions(),
              QList<QAction *>({menuItem(window, "newField:"), menuItem(window, "editFields:")}));
}

TEST_F(LibraryActionsTests, WithoutALibraryThereIsOnlyANewOne)
{
    MainWindowController *const window = open();
    auto *const actions = window->mainWindow()->findChild<LibraryActions *>();
    ASSERT_NE(actions, nullptr);
    EXPECT_TRUE(actions->validateMenuItem(menuItem(window, "newLibrary:")));
    for (const char *action : {"renameLibrary:", "removeLibrary:", "newField:", "editFields:"})
        EXPECT_FALSE(actions->validateMenuItem(menuItem(window, action))) << action;
    actions->renameLibrary();
    actions->newField();
    actions->editFields();
    EXPECT_EQ(sheetOf(window), nullptr);
}
