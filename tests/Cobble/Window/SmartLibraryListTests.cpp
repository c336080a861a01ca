// Smart libraries in the host's main window.

#include "SheetSupport.h"

#include "Finding/FilterBar.h"
#include "Open/OpenBundle.h"
#include "Window/RecordFinder.h"
#include "Window/SmartLibraryList.h"

#include <QHeaderView>
#include <QInputDialog>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QSqlQuery>
#include <QStatusBar>

using namespace Qt::StringLiterals;

class SmartLibraryListTests : public HostSheetTest
{
protected:
    static SmartLibrary visitors(MainWindowController *window, const QString &name)
    {
        const Library &library = window->library()->definition();
        const auto fields = std::make_shared<FilterFields>(library);
        RecordQuery query;
        query.filter = RecordFilter::read(u"visits > 5"_s, fields);
        query.order = {{1, false}};
        query.columns = {0, 1};
        return SmartLibraries::make(name, library, query, *fields);
    }
    static void choose(MainWindowController *window, int row)
    {
        window->mainWindow()->libraries()->setCurrentRow(row);
        window->search();
    }
    static QInputDialog *nameDialog(MainWindowController *window)
    {
        return window->mainWindow()->findChild<QInputDialog *>();
    }
};

TEST_F(SmartLibraryListTests, SavingAsksForANameAndShowsIt)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    window->finder()->setShowsFilter(true);
    window->finder()->bar()->setText(u"visits > 5"_s);
    window->search();
    window->mainWindow()->table()->sortByColumn(1, Qt::DescendingOrder);
    QTest::mouseClick(window->finder()->bar()->saveButton(), Qt::LeftButton);
    QInputDialog *const dialog = nameDialog(window);
    ASSERT_NE(dialog, nullptr);
    dialog->setTextValue(u"Visitors"_s);
    dialog->accept();
    turn();
    EXPECT_EQ(librariesIn(window), QStringList({u"Things"_s, u"    Visitors"_s}));
    EXPECT_EQ(window->mainWindow()->libraries()->currentRow(), 1);
    const auto all = SmartLibraries::all(*application->bundle()->store());
    ASSERT_EQ(all->size(), 1);
    EXPECT_EQ(all->first().filter, u"\"kt_visits\" > 5"_s);
    EXPECT_EQ(all->first().order, u"-kt_visits"_s);
}

TEST_F(SmartLibraryListTests, OneIsShownAndLeft)
{
    MainWindowController *const window = openThings();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    choose(window, 0);
    choose(window, 1);
    EXPECT_EQ(column(window, 0), QStringList({u"Céline"_s, u"Ann"_s}));
    EXPECT_EQ(window->finder()->bar()->text(), u"Visits > 5"_s);
    EXPECT_TRUE(window->finder()->showsFilter());
    EXPECT_TRUE(window->mainWindow()->table()->isColumnHidden(2));
    EXPECT_FALSE(window->mainWindow()->table()->isColumnHidden(1));
    EXPECT_EQ(window->smartLibraries()->current()->name, u"Visitors"_s);
    choose(window, 0);
    EXPECT_EQ(window->model()->rowCount(), 4);
    EXPECT_FALSE(window->finder()->showsFilter());
    EXPECT_FALSE(window->mainWindow()->table()->isColumnHidden(2));
}

TEST_F(SmartLibraryListTests, ItsLibraryIsAClickAwayOnceItIsSaved)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    window->finder()->setShowsFilter(true);
    window->finder()->bar()->setText(u"visits > 5"_s);
    window->search();
    EXPECT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    EXPECT_EQ(window->mainWindow()->libraries()->currentRow(), 1);
    choose(window, 0);
    EXPECT_EQ(window->model()->rowCount(), 4);
    EXPECT_FALSE(window->finder()->showsFilter());
}

TEST_F(SmartLibraryListTests, WithoutItsFilterTheLibraryIsShown)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    EXPECT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    choose(window, 0);
    choose(window, 1);
    EXPECT_EQ(window->model()->rowCount(), 2);
    QTest::mouseClick(window->finder()->bar()->closeButton(), Qt::LeftButton);
    window->search();
    EXPECT_EQ(window->model()->rowCount(), 4);
    EXPECT_EQ(window->mainWindow()->libraries()->currentRow(), 0);
    choose(window, 1);
    EXPECT_EQ(window->model()->rowCount(), 2);
}

TEST_F(SmartLibraryListTests, IsInOtherWindowsAndAfterReading)
{
    MainWindowController *const window = openThings();
    MainWindowController *const other = open();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    EXPECT_EQ(librariesIn(other), QStringList({u"Things"_s, u"    Visitors"_s}));
    application->bundle()->reload();
    EXPECT_EQ(librariesIn(window), QStringList({u"Things"_s, u"    Visitors"_s}));
    ASSERT_TRUE(other->smartLibraries()->rename(u"Visitors"_s, u"Guests"_s));
    EXPECT_EQ(librariesIn(window), QStringList({u"Things"_s, u"    Guests"_s}));
    ASSERT_TRUE(window->smartLibraries()->remove(u"Guests"_s));
    EXPECT_EQ(librariesIn(other), QStringList(u"Things"_s));
}

TEST_F(SmartLibraryListTests, NamesAreTakenOnce)
{
    MainWindowController *const window = openThings();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    for (const QString &name : {u"visitors"_s, u"THINGS"_s, u" "_s}) {
        EXPECT_FALSE(window->smartLibraries()->save(visitors(window, name)));
        EXPECT_FALSE(window->mainWindow()->statusBar()->currentMessage().isEmpty());
    }
    EXPECT_FALSE(window->smartLibraries()->rename(u"Visitors"_s, u"things"_s));
    EXPECT_TRUE(window->smartLibraries()->rename(u"Visitors"_s, u"VISITORS"_s));
}

TEST_F(SmartLibraryListTests, OneThatNoLongerFitsSaysWhyAndShowsNone)
{
    MainWindowController *const window = openThings();
    SmartLibrary lost = visitors(window, u"Lost"_s);
    lost.filter = u"\"kt_gone\" > 5"_s;
    EXPECT_FALSE(window->smartLibraries()->save(lost));
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Lost"_s)));
    QSqlQuery change(application->bundle()->store()->database());
    ASSERT_TRUE(change.exec(u"UPDATE cobble_smart_library SET filter = '\"kt_gone\" > 5'"_s));
    window->smartLibraries()->addToList();
    choose(window, 0);
    choose(window, 1);
    EXPECT_EQ(window->model()->rowCount(), 0);
    EXPECT_TRUE(window->finder()->bar()->problem().contains(u"kt_gone"));
    EXPECT_TRUE(window->mainWindow()->statusBar()->currentMessage().startsWith(
        u"The filter of “Lost” no longer fits: "));
}

TEST_F(SmartLibraryListTests, ItsMenuRenamesAndRemoves)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->show();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    QListWidget *const list = window->mainWindow()->libraries();
    const auto menuAt = [&](int row) {
        Q_EMIT list->customContextMenuRequested(list->visualItemRect(list->item(row)).center());
        return list->findChild<QMenu *>();
    };
    QPointer<QMenu> menu = menuAt(0);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions(), list->actions());
    delete menu;
    menu = menuAt(1);
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    menu->actions().first()->trigger();
    QInputDialog *const dialog = nameDialog(window);
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->textValue(), u"Visitors"_s);
    dialog->setTextValue(u"Guests"_s);
    dialog->accept();
    EXPECT_EQ(librariesIn(window).last(), u"    Guests"_s);
    for (const QString &answer : {u"Cancel"_s, u"Remove"_s}) {
        EXPECT_EQ(librariesIn(window).last(), u"    Guests"_s);
        delete menu;
        menu = menuAt(1);
        ASSERT_NE(menu, nullptr);
        menu->actions().last()->trigger();
        QMessageBox *const question = alertBox();
        ASSERT_NE(question, nullptr);
        EXPECT_TRUE(question->text().contains(u"Guests"));
        press(question, answer);
        turn();
    }
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
    delete menu;
}

TEST_F(SmartLibraryListTests, StaysWhenTheBundleIsReadAgain)
{
    MainWindowController *const window = openThings();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    choose(window, 0);
    choose(window, 1);
    application->bundle()->reload();
    turn();
    EXPECT_EQ(column(window, 0), QStringList({u"Céline"_s, u"Ann"_s}));
    EXPECT_TRUE(window->finder()->isSmart());
    EXPECT_TRUE(window->mainWindow()->table()->isColumnHidden(2));
    EXPECT_EQ(window->smartLibraries()->current()->name, u"Visitors"_s);
    EXPECT_EQ(window->finder()->bar()->text(), u"Visits > 5"_s);
    choose(window, 0);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    EXPECT_FALSE(window->mainWindow()->table()->isColumnHidden(2));
}

TEST_F(SmartLibraryListTests, ALongListIsShown)
{
    MainWindowController *const window = openThings();
    QString list = u"\"kt_visits\" IN (1000"_s;
    for (int number = 100001; list.size() < 30000; ++number)
        list += u"; "_s + QString::number(number);
    SmartLibrary many = visitors(window, u"Many"_s);
    many.filter = list + u')';
    ASSERT_TRUE(window->smartLibraries()->save(many));
    choose(window, 0);
    choose(window, 1);
    EXPECT_EQ(window->finder()->bar()->problem(), QString());
    EXPECT_EQ(column(window, 0), QStringList(u"Céline"_s));
}

TEST_F(SmartLibraryListTests, LeavesTheColumnsAndTheOrderOfItsLibrary)
{
    MainWindowController *window = openThings();
    ASSERT_TRUE(window->smartLibraries()->save(visitors(window, u"Visitors"_s)));
    const auto header = [&] { return window->mainWindow()->table()->horizontalHeader(); };
    header()->resizeSection(2, 333);
    choose(window, 0);
    choose(window, 1);
    header()->resizeSection(0, 54);
    choose(window, 0);
    EXPECT_EQ(header()->sectionSize(2), 333);
    EXPECT_NE(header()->sectionSize(0), 54);
    EXPECT_EQ(header()->sortIndicatorSection(), -1);
    EXPECT_EQ(column(window, 0), QStringList({u"Ann"_s, u"Bjørn"_s, u"Céline"_s, u"Ann"_s}));
    choose(window, 1);
    header()->resizeSection(0, 54);
    application->bundle()->reload();
    application->terminate();
    turn();
    application.reset();
    window = open();
    EXPECT_EQ(header()->sectionSize(2), 333);
    EXPECT_NE(header()->sectionSize(0), 54);
    EXPECT_EQ(header()->sortIndicatorSection(), -1);
}
