// What windows remember from one run of the program to the next.

#include "WindowSupport.h"

#include <KTUtility/NSUserDefaults>

#include <QHeaderView>
#include <QSplitter>

using namespace Qt::StringLiterals;

class MainWindowMemoryTests : public HostWindowTest
{
protected:
    MainWindowMemoryTests() { forget(); }
    ~MainWindowMemoryTests() override
    {
        application.reset();
        forget();
    }

    static void forget()
    {
        NSUserDefaults::standardUserDefaults()->removeObjectForKey(u"mainWindow"_s);
        NSUserDefaults::standardUserDefaults()->removeObjectForKey(u"libraries"_s);
    }
    /// Ends the program and starts it again.
    MainWindowController *restart()
    {
        application->terminate();
        turn();
        application.reset();
        return open();
    }
    static QHeaderView *header(MainWindowController *window)
    {
        return window->mainWindow()->table()->horizontalHeader();
    }
    static QSplitter *splitter(MainWindowController *window, const QString &name)
    {
        return window->mainWindow()->findChild<QSplitter *>(name);
    }
};

TEST_F(MainWindowMemoryTests, AWindowIsAsTheLastOneWasLeft)
{
    MainWindowController *window = openThings();
    window->mainWindow()->setGeometry(30, 60, 640, 480);
    splitter(window, u"librariesSplitter"_s)->setSizes({120, 520});
    splitter(window, u"formSplitter"_s)->setSizes({200, 200});
    turn();
    const QList<int> sizes = splitter(window, u"librariesSplitter"_s)->sizes();
    window = restart();
    EXPECT_EQ(window->mainWindow()->geometry(), QRect(30, 60, 640, 480));
    EXPECT_EQ(splitter(window, u"librariesSplitter"_s)->sizes(), sizes);
}

TEST_F(MainWindowMemoryTests, TheLastLibraryIsShownAgain)
{
    import(u"Others.csv"_s, "Name\nOtto\n");
    MainWindowController *window = openThings();
    ASSERT_EQ(window->library()->definition().name, u"Others"_s);
    window->showLibrary(u"Things"_s);
    window = restart();
    EXPECT_EQ(window->library()->definition().name, u"Things"_s);
    EXPECT_EQ(window->mainWindow()->libraries()->currentItem()->text(), u"Things"_s);
}

TEST_F(MainWindowMemoryTests, ColumnsAndOrderAreThoseOfTheLibrary)
{
    import(u"Others.csv"_s, "Name\nOtto\nAnn\n");
    MainWindowController *window = openThings();
    window->showLibrary(u"Things"_s);
    header(window)->resizeSection(0, 199);
    header(window)->setSortIndicator(0, Qt::DescendingOrder);
    window->showLibrary(u"Others"_s);
    EXPECT_NE(header(window)->sectionSize(0), 199);
    EXPECT_EQ(column(window, 0), QStringList({u"Otto"_s, u"Ann"_s}));
    window = restart();
    window->showLibrary(u"Things"_s);
    EXPECT_EQ(header(window)->sectionSize(0), 199);
    EXPECT_EQ(column(window, 0), QStringList({u"Céline"_s, u"Bjørn"_s, u"Ann"_s, u"Ann"_s}));
}

TEST_F(MainWindowMemoryTests, AnImportKeepsTheOrder)
{
    MainWindowController *const window = openThings();
    header(window)->setSortIndicator(0, Qt::DescendingOrder);
    application->bundle()->reload();
    EXPECT_EQ(column(window, 0).first(), u"Céline"_s);
}

TEST_F(MainWindowMemoryTests, OneMoreWindowStandsBesideTheOther)
{
    MainWindowController *const first = openThings();
    first->mainWindow()->setGeometry(30, 60, 500, 400);
    first->mainWindow()->activateWindow();
    turn();
    MainWindowController *const second = open();
    EXPECT_EQ(second->mainWindow()->geometry().topLeft() -
                  first->mainWindow()->geometry().topLeft(),
              QPoint(28, 28));
}

TEST_F(MainWindowMemoryTests, PicturesRememberNothing)
{
    import(u"Things.csv"_s, Things);
    application = std::make_unique<DesktopApplication>(bundle, &logger);
    application->setRemembers(false);
    MainWindowController *const window = open();
    EXPECT_EQ(window->mainWindow()->size(), QSize(1000, 700));
    header(window)->resizeSection(0, 199);
    application->terminate();
    turn();
    NSUserDefaults *const defaults = NSUserDefaults::standardUserDefaults();
    EXPECT_TRUE(defaults->dictionaryForKey(u"mainWindow"_s).isEmpty());
    EXPECT_TRUE(defaults->dictionaryForKey(u"libraries"_s).isEmpty());
}
