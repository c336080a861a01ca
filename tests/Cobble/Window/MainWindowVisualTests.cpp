// What the host's main window shows beyond texts: displays, badges, pictures, rings.

#include "WindowSupport.h"

#include "Window/MediaField.h"
#include "Window/RecordTableView.h"

#include <KTUtility/KTFocusRingScrollView>
#include <KTUtility/KTImageBadger>

#include <QBuffer>
#include <QHeaderView>
#include <QMimeData>
#include <QPushButton>

using namespace Qt::StringLiterals;

class MainWindowVisualTests : public HostWindowTest
{
protected:
    /// What is reported over the window now; nil if nothing is.
    QString told() const
    {
        KTStatusHUDController *const hud = application->hud();
        return hud->isDisplayingWindow() ? hud->text()->text() : QString();
    }
};

TEST_F(MainWindowVisualTests, ASearchTellsHowManyRecordsItFound)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    turn();
    search(window, u"ann"_s);
    EXPECT_EQ(told(), u"2 records"_s);
    const int size = application->hud()->text()->font().pixelSize();
    // What is asked for meanwhile is not shown.
    search(window, u"tall"_s);
    EXPECT_EQ(told(), u"2 records"_s);
    EXPECT_EQ(size, 24);
}

TEST_F(MainWindowVisualTests, TheCountIsShownInLargeTypeOnDemand)
{
    MainWindowController *const window = openThings();
    menuItem(window, "showRecordCount:")->trigger();
    EXPECT_EQ(told(), u"4 records"_s);
    EXPECT_GT(application->hud()->text()->font().pixelSize(), 24);
    EXPECT_FALSE(application->hud()->largeText());
}

TEST_F(MainWindowVisualTests, WithoutALibraryThereIsNoCount)
{
    MainWindowController *const window = open();
    EXPECT_FALSE(window->validateMenuItem(menuItem(window, "showRecordCount:")));
    window->showRecordCount();
    EXPECT_EQ(told(), QString());
}

TEST_F(MainWindowVisualTests, ExportsAreTold)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    turn();
    Q_EMIT window->exportSheet()->exported(4, tree.path(u"out.csv"_s));
    EXPECT_EQ(told(), u"Exported 4 records"_s);
    application->hud()->dismissStatusWindow();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !application->hud()->window()->isVisible(); }));
}

TEST_F(MainWindowVisualTests, WhatIsDoneUnderASheetIsToldBehindIt)
{
    MainWindowController *const window = openThings();
    window->importFile();
    turn();
    window->importSheet()->window()->activateWindow();
    turn();
    Q_EMIT window->exportSheet()->exported(4, tree.path(u"out.csv"_s));
    EXPECT_EQ(told(), QString());
    window->mainWindow()->activateWindow();
    turn();
    EXPECT_EQ(told(), u"Exported 4 records"_s);
    window->importSheet()->endDialog();
    turn();
}

TEST_F(MainWindowVisualTests, DraggedRowsCarryTheirNumber)
{
    MainWindowController *const window = openThings();
    RecordTableView *const table = window->mainWindow()->table();
    table->selectAll();
    const QImage four = table->dragPicture(4);
    ASSERT_FALSE(four.isNull());
    EXPECT_EQ(four.height(), table->rowHeight(0));
    // The badge lies at the bottom right, and looks different for different numbers.
    EXPECT_NE(four, table->dragPicture(5));
    const QImage badge = KTImageBadger::badgeWithString(u"4"_s);
    EXPECT_NE(four.pixel(four.width() - badge.width() / 2, four.height() - 3),
              four.pixel(four.width() / 4, four.height() - 3));
    table->clearSelection();
    EXPECT_TRUE(table->dragPicture(0).isNull());
}

TEST_F(MainWindowVisualTests, DraggedRowsAreTexts)
{
    MainWindowController *const window = openThings();
    RecordTableModel *const model = window->model();
    const std::unique_ptr<QMimeData> data(model->mimeData(
        {model->index(1, 0), model->index(1, 1), model->index(0, 0), model->index(0, 4)}));
    EXPECT_EQ(data->text(), u"Ann\t7\t$5.50\t3/4/2008\tfirst second\n"
                            "Bjørn\t-12\t$1.00\t4/5/2008\t\n"_s);
    EXPECT_EQ(data->data(u"text/csv"_s), u"Name,Visits,Paid,Since,Notes\r\n"
                                         "Ann,7,$5.50,3/4/2008,\"first\nsecond\"\r\n"
                                         "Bjørn,-12,$1.00,4/5/2008,\r\n"_s.toUtf8());
}

TEST_F(MainWindowVisualTests, DraggedRowsBringNoFormulas)
{
    import(u"Links.csv"_s, "Link,Note\n=HYPERLINK(1),\"a\t=1+1\n=2+2\"\n");
    MainWindowController *const window = open();
    RecordTableModel *const model = window->model();
    const std::unique_ptr<QMimeData> data(model->mimeData({model->index(0, 0)}));
    EXPECT_EQ(data->text(), u"'=HYPERLINK(1)\ta =1+1 =2+2\n"_s);
    EXPECT_EQ(data->data(u"text/csv"_s), "Link,Note\r\n'=HYPERLINK(1),\"a\t=1+1\n=2+2\"\r\n");
}

TEST_F(MainWindowVisualTests, TheFormHasARingWhileTheKeyboardIsInIt)
{
    MainWindowController *const window = openThings();
    window->mainWindow()->activateWindow();
    turn();
    auto *const ring = window->mainWindow()->findChild<KTFocusRingScrollView *>();
    ASSERT_NE(ring, nullptr);
    window->mainWindow()->search()->setFocus();
    turn();
    EXPECT_FALSE(ring->shouldDrawFocusRing());
    editor(window, 2)->input()->setFocus();
    turn();
    EXPECT_TRUE(ring->shouldDrawFocusRing());
    EXPECT_EQ(ring->previousResponder(), editor(window, 2)->input());
}

TEST_F(MainWindowVisualTests, MediaFieldsShowTheirPicture)
{
    QImage image(30, 10, QImage::Format_RGB32);
    image.fill(Qt::green);
    ASSERT_TRUE(image.save(tree.path(u"a.png"_s)));
    import(u"Pictures.csv"_s, "Name,Picture\nA," + tree.path(u"a.png"_s).toUtf8() + "\nB,\n");
    MainWindowController *const window = open();
    EXPECT_EQ(window->mainWindow()->detail()->mediaField(0), nullptr);
    MediaField *const media = window->mainWindow()->detail()->mediaField(1);
    ASSERT_NE(media, nullptr);
    EXPECT_EQ(media->picture().size(), QSize(30, 10));
    EXPECT_EQ(media->caption(), u"a.0.png"_s);
    window->records()->setSelectionIndex(1);
    EXPECT_TRUE(media->picture().isNull());
    window->records()->setSelectionIndex(0);
    EXPECT_EQ(media->picture().size(), QSize(30, 10));
    window->records()->setSelectionIndexes({});
    EXPECT_TRUE(media->picture().isNull());
}

TEST_F(MainWindowVisualTests, AnEmptyTableSaysWhy)
{
    MainWindowController *const window = openThings();
    RecordTableView *const table = window->mainWindow()->table();
    table->selectAll();
    window->deleteRecords();
    turn();
    EXPECT_EQ(table->emptyText(), u"There are no records yet."_s);
    const QImage empty = table->viewport()->grab().toImage();
    table->setEmptyText(QString());
    EXPECT_NE(table->viewport()->grab().toImage(), empty);
    window->undoChange();
    // What is searched for in vain is told of in another way, and not in two.
    search(window, u"nobody"_s);
    EXPECT_EQ(window->model()->rowCount(), 0);
    EXPECT_EQ(table->emptyText(), QString());
}

TEST_F(MainWindowVisualTests, ColumnsAreMeasuredByRowsFromEverywhere)
{
    QByteArray rows = "Name\n";
    for (int row = 0; row < 3000; ++row)
        rows += row < 150 ? "A\n" : "A person of later rows\n";
    import(u"Long.csv"_s, rows);
    MainWindowController *const window = open();
    const RecordTableView *const table = window->mainWindow()->table();
    EXPECT_GT(table->columnWidth(0),
              table->fontMetrics().horizontalAdvance(u"A person of later rows"_s));
}

TEST_F(MainWindowVisualTests, NothingLiesOverTheSummaryOfAnImport)
{
    MainWindowController *const window = openThings();
    window->importFile();
    turn();
    window->importSheet()->setFile(tree.path(u"Things.csv"_s));
    window->importSheet()->go();
    // As between two dialogs, when the window has the keyboard for a moment.
    window->mainWindow()->activateWindow();
    window->windowDidBecomeKey({});
    EXPECT_EQ(told(), QString());
    turn();
    EXPECT_TRUE(window->importSummary()->window()->isVisible());
    EXPECT_EQ(told(), QString());
}

TEST_F(MainWindowVisualTests, TitlesAreNotBoldWhileARowIsSelected)
{
    MainWindowController *const window = openThings();
    EXPECT_FALSE(window->mainWindow()->table()->horizontalHeader()->highlightSections());
}

TEST_F(MainWindowVisualTests, AColumnWithoutATitleIsUntitled)
{
    import(u"Bare.csv"_s, "Name,\nAnn,5\nBjørn,6\n");
    MainWindowController *const window = open();
    EXPECT_EQ(window->model()->headerData(1, Qt::Horizontal).toString(), u"Untitled"_s);
    EXPECT_EQ(editor(window, 1)->input()->accessibleName(), u"Untitled"_s);
}

TEST_F(MainWindowVisualTests, ThoseWhoHaveNothingYetHaveAButton)
{
    MainWindowController *const window = open();
    QPushButton *const import = window->mainWindow()->importButton();
    EXPECT_TRUE(import->isVisible());
    QTest::mouseClick(import, Qt::LeftButton);
    turn();
    EXPECT_TRUE(window->importSheet()->window()->isVisible());
    window->importSheet()->cancel();
}

TEST_F(MainWindowVisualTests, TheKeyboardStaysWhereTheRecordsWere)
{
    MainWindowController *const window = openThings();
    MainWindow *const shown = window->mainWindow();
    search(window, u"x"_s);
    search(window, QString());
    shown->table()->setFocus();
    menuItem(window, "removeLibrary:")->trigger();
    turn();
    EXPECT_EQ(shown->focusWidget(), shown->importButton());
    EXPECT_TRUE(shown->importButton()->isVisible());
    shown->setNotice(u"Choose a library from the list."_s);
    EXPECT_EQ(shown->focusWidget(), shown->libraries());
    shown->setNotice(QString(), true);
    shown->importButton()->setFocus();
    shown->setNotice(QString());
    EXPECT_EQ(shown->focusWidget(), shown->table());
}

TEST_F(MainWindowVisualTests, TheProgramHasANameAndAnIcon)
{
    open();
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), u"Cobble"_s);
    EXPECT_EQ(QGuiApplication::desktopFileName(), u"org.cobble.Cobble"_s);
    EXPECT_FALSE(QGuiApplication::windowIcon().isNull());
}
