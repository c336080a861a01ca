// The host as a user has it before them: with the keyboard, on a desktop.

#include "Cobble/Window/WindowSupport.h"
#include "DesktopDisplay.h"
#include "Making/FieldSheet.h"

#include <KTUtility/KTWindowManager>
#include <KTUtility/NSApplication>

#include <QHeaderView>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QTimer>
#include <QWindow>

using namespace Qt::StringLiterals;

class DesktopHostTests : public HostWindowTest
{
protected:
    MainWindowController *openActive()
    {
        MainWindowController *const window = openThings();
        EXPECT_TRUE(becomesActive(window->mainWindow()));
        return window;
    }
    /// Presses a key as a keyboard does: for the window that has it.
    static void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        ASSERT_NE(QGuiApplication::focusWindow(), nullptr);
        QTest::keyClick(QGuiApplication::focusWindow(), Qt::Key(key), modifiers);
    }
    static void write(const QString &text)
    {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, QGuiApplication::focusWindow(), Qt::Key_unknown,
                                QString(letter), Qt::NoModifier);
    }
    static bool becomesActive(QWidget *window) { return desktop_support::becomesActive(window); }
    /// The same for a dialog that still waits for the ones before it. Its window is not asked for
    /// before, which would load it.
    static bool becomesActive(KTDialogController *dialog)
    {
        return QTest::qWaitFor([dialog] { return dialog->isRunningAsDialog(); }) &&
               becomesActive(dialog->window());
    }
    static QWidget *activeAlert()
    {
        EXPECT_TRUE(QTest::qWaitFor(
            [] { return qobject_cast<QMessageBox *>(QApplication::activeWindow()); }));
        return QApplication::activeWindow();
    }
};

TEST_F(DesktopHostTests, ImportsByTheKeyboardAlone)
{
    MainWindowController *const window = openActive();
    tree.add(u"Pets.csv"_s, "Pet,Age\nCat,3\nDog,4\n");
    press(Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(becomesActive(window->importSheet()));
    write(tree.path(u"Pets.csv"_s));
    press(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(window->importSummary()));
    press(Qt::Key_Return);
    EXPECT_EQ(activeAlert()->windowHandle()->transientParent(),
              window->mainWindow()->windowHandle());
    press(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(window->mainWindow()));
    EXPECT_EQ(window->library()->definition().name, u"Pets"_s);
    EXPECT_EQ(countIn(window), u"2 records"_s);
    // What was done is reported when the window has the keyboard again.
    EXPECT_TRUE(QTest::qWaitFor([this] { return application->hud()->isDisplayingWindow(); }));
    EXPECT_EQ(application->hud()->text()->text(), u"Imported 2 records"_s);
}

TEST_F(DesktopHostTests, SearchesEditsAndDeletesByTheKeyboardAlone)
{
    MainWindowController *const window = openActive();
    press(Qt::Key_F, Qt::ControlModifier);
    write(u"tall"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(countIn(window), u"1 of 4 records"_s);
    editor(window, 0)->input()->setFocus();
    press(Qt::Key_Tab);
    press(Qt::Key_A, Qt::ControlModifier);
    write(u"2,500"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(stored(3, 1), u"2,500"_s);
    window->mainWindow()->table()->setFocus();
    press(Qt::Key_Delete);
    EXPECT_EQ(countIn(window), u"0 of 3 records"_s);
    EXPECT_EQ(QApplication::focusWidget(), window->mainWindow()->table());
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(countIn(window), u"1 of 4 records"_s);
}

TEST_F(DesktopHostTests, FieldsAreChangedByTheKeyboardAlone)
{
    MainWindowController *const window = openActive();
    press(Qt::Key_L, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_I);
    auto *const sheet = window->mainWindow()->findChild<FieldSheet *>();
    ASSERT_NE(sheet, nullptr);
    ASSERT_TRUE(becomesActive(sheet));
    press(Qt::Key_Down);
    press(Qt::Key_Up, Qt::AltModifier);
    press(Qt::Key_F2);
    press(Qt::Key_A, Qt::ControlModifier);
    write(u"Times"_s);
    press(Qt::Key_Return);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return sheet->plan().fields().first().field.title() == u"Times"; }));
    EXPECT_TRUE(sheet->isVisible());
    press(Qt::Key_Return);
    ASSERT_TRUE(becomesActive(window->mainWindow()));
    EXPECT_EQ(window->library()->definition().fields.at(0).title(), u"Times"_s);
    EXPECT_EQ(window->library()->definition().fields.at(1).title(), u"Name"_s);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->library()->definition().fields.at(0).title(), u"Name"_s);
}

TEST_F(DesktopHostTests, AColumnIsDraggedWithTheMouse)
{
    MainWindowController *const window = openActive();
    QHeaderView *const header = window->mainWindow()->table()->horizontalHeader();
    const auto middle = [header](int column) {
        return QPoint(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                      header->height() / 2);
    };
    const QPoint from = middle(2);
    const QPoint to = middle(0) - QPoint(header->sectionSize(0) / 4, 0);
    QTest::mousePress(header->viewport(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 8; ++step)
        QTest::mouseMove(header->viewport(), from + (to - from) * step / 8);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, {}, to);
    EXPECT_TRUE(QTest::qWaitFor(
        [window] { return window->library()->definition().fields.first().title() == u"Paid"; }));
    EXPECT_EQ(cell(window, 0, 0), u"$5.50"_s);
    // It was dragged, and not clicked.
    EXPECT_EQ(header->sortIndicatorSection(), -1);
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(window->library()->definition().fields.first().title(), u"Name"_s);
}

TEST_F(DesktopHostTests, QuittingWaitsForTheSheet)
{
    MainWindowController *const window = openActive();
    press(Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(becomesActive(window->importSheet()));
    press(Qt::Key_Q, Qt::ControlModifier);
    turn();
    EXPECT_EQ(application->windows().size(), 1);
    press(Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(window->mainWindow()));
    press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return application->windows().isEmpty(); }));
}

TEST_F(DesktopHostTests, AWindowIsUsedDuringItsImport)
{
    QByteArray rows = "Number,Text\n";
    for (int row = 0; row < 200'000; ++row)
        rows += QByteArray::number(row) + ",text\n";
    tree.add(u"Long.csv"_s, rows);
    MainWindowController *const window = openActive();
    press(Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(becomesActive(window->importSheet()));
    QWidget *const sheet = window->importSheet()->window();
    window->importSheet()->setReleaseDelay(-1);
    write(tree.path(u"Long.csv"_s));
    bool wasUsed = false;
    // Once the window can be used: with the mouse, while the small window is before it.
    const auto use = [&] {
        if (NSApplication::isSheet(sheet) || !window->importSheet()->isWorking())
            return;
        RecordTableView *const table = window->mainWindow()->table();
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                          table->visualRect(window->model()->index(2, 0)).center());
        wasUsed = window->records()->selectionIndex() == 2 && window->importSheet()->isWorking();
        EXPECT_EQ(sheet->windowHandle()->transientParent(), window->mainWindow()->windowHandle());
        window->importSheet()->cancel();
    };
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!wasUsed)
            use();
    });
    timer.start(1);
    press(Qt::Key_Return);
    EXPECT_TRUE(wasUsed);
    // What it says has to be answered.
    ASSERT_TRUE(becomesActive(sheet));
    EXPECT_TRUE(NSApplication::isSheet(sheet));
    EXPECT_FALSE(window->importSheet()->problem().isEmpty());
    press(Qt::Key_Escape);
    ASSERT_TRUE(becomesActive(window->mainWindow()));
    EXPECT_EQ(librariesIn(window), QStringList(u"Things"_s));
}

TEST_F(DesktopHostTests, TheMenuIsReachedByItsLetters)
{
    MainWindowController *const window = openActive();
    press(Qt::Key_F, Qt::AltModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_I);
    EXPECT_TRUE(becomesActive(window->importSheet()));
    press(Qt::Key_Escape);
    EXPECT_TRUE(becomesActive(window->mainWindow()));
}

TEST_F(DesktopHostTests, EachWindowHasItsQueue)
{
    MainWindowController *const first = openActive();
    press(Qt::Key_N, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return application->windows().size() == 2; }));
    MainWindowController *const second = application->windows().last();
    ASSERT_TRUE(becomesActive(second->mainWindow()));
    press(Qt::Key_I, Qt::ControlModifier);
    ASSERT_TRUE(becomesActive(second->importSheet()));
    EXPECT_FALSE(first->continueRunningQueue());
    EXPECT_TRUE(second->continueRunningQueue());
    first->mainWindow()->activateWindow();
    ASSERT_TRUE(becomesActive(first->mainWindow()));
    press(Qt::Key_W, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([this] { return application->windows().size() == 1; }));
    EXPECT_TRUE(second->importSheet()->isRunningAsDialog());
}

TEST_F(DesktopHostTests, TheScreenShowsIt)
{
    MainWindowController *const window = openActive();
    const QRect frame = window->mainWindow()->frameGeometry();
    const auto differs = [&frame] {
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        QSet<QRgb> colours;
        for (int y = frame.top(); y < frame.bottom(); ++y)
            colours.insert(screen.pixel(frame.center().x(), y));
        return colours.size() > 5;
    };
    EXPECT_TRUE(QTest::qWaitFor(differs));
}
