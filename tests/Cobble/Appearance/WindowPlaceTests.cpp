#include "Appearance/WindowPlace.h"

#include "support/TestSupport.h"

#include <KTUtility/NSUserDefaults>

#include <QMainWindow>
#include <QScreen>
#include <QSplitter>

using namespace Qt::StringLiterals;

namespace {
const QRect Screen(0, 0, 960, 600);

class Window : public QMainWindow
{
public:
    Window()
    {
        splitter->setObjectName(u"splitter"_s);
        splitter->addWidget(new QWidget);
        splitter->addWidget(new QWidget);
        setCentralWidget(splitter);
        resize(400, 300);
    }

    QSplitter *splitter = new QSplitter;
};
} // namespace

class WindowPlaceTests : public testing_support::WindowedTest
{
protected:
    WindowPlaceTests() { forget(); }
    ~WindowPlaceTests() override { forget(); }

    static void forget()
    {
        NSUserDefaults::standardUserDefaults()->removeObjectForKey(u"mainWindow"_s);
    }
    static QRect screenOf(const QMainWindow &window)
    {
        return window.screen()->availableGeometry();
    }
};

TEST_F(WindowPlaceTests, LiesOnTheScreen)
{
    const struct
    {
        QRect wanted;
        QRect fitted;
    } rows[] = {
        {QRect(100, 100, 500, 400), QRect(100, 100, 500, 400)},
        // Too large, too far to each side, and with its title above the screen.
        {QRect(0, 0, 1000, 700), QRect(4, 32, 952, 564)},
        {QRect(800, 500, 500, 400), QRect(456, 196, 500, 400)},
        {QRect(-3000, -3000, 500, 400), QRect(4, 32, 500, 400)},
    };
    for (const auto &row : rows)
        EXPECT_EQ(WindowPlace::fitted(row.wanted, Screen), row.fitted);
}

TEST_F(WindowPlaceTests, WindowsCascadeUntilTheScreenEnds)
{
    QRect place(4, 32, 800, 480);
    for (int window = 1; window < 4; ++window) {
        place = WindowPlace::beside(place, Screen);
        EXPECT_EQ(place, QRect(4 + window * 28, 32 + window * 28, 800, 480));
        EXPECT_TRUE(Screen.contains(place));
    }
    EXPECT_EQ(WindowPlace::beside(QRect(4, 130, 800, 450), Screen), QRect(4, 32, 800, 450));
}

TEST_F(WindowPlaceTests, IsRememberedWithItsSplitters)
{
    Window first;
    first.setGeometry(40, 50, 500, 300);
    first.splitter->setSizes({100, 400});
    first.show();
    turn();
    const QList<int> sizes = first.splitter->sizes();
    WindowPlace::save(&first);
    Window second;
    WindowPlace::restore(&second, nullptr);
    second.show();
    turn();
    EXPECT_EQ(second.geometry(), first.geometry());
    EXPECT_EQ(second.splitter->sizes(), sizes);
}

TEST_F(WindowPlaceTests, IsNeverLargerThanTheScreen)
{
    Window first;
    first.resize(screenOf(first).size() * 2);
    WindowPlace::restore(&first, nullptr);
    EXPECT_LE(first.width(), screenOf(first).width());
    EXPECT_LT(first.height(), screenOf(first).height());
    first.resize(screenOf(first).size() * 2);
    WindowPlace::save(&first);
    Window second;
    WindowPlace::restore(&second, nullptr);
    EXPECT_TRUE(screenOf(second).contains(second.geometry()));
}

TEST_F(WindowPlaceTests, OneMoreWindowStandsBesideTheOther)
{
    Window first;
    first.setGeometry(40, 50, 400, 300);
    first.show();
    Window second;
    WindowPlace::restore(&second, &first);
    EXPECT_EQ(second.geometry().topLeft() - first.geometry().topLeft(), QPoint(28, 28));
    EXPECT_EQ(second.size(), first.size());
}

TEST_F(WindowPlaceTests, DamagedSettingsDoNoHarm)
{
    NSUserDefaults::standardUserDefaults()->setObject(
        QVariantMap{{u"geometry"_s, QByteArray("none")}, {u"splitters"_s, u"none"_s}},
        u"mainWindow"_s);
    Window window;
    WindowPlace::restore(&window, nullptr);
    EXPECT_EQ(window.size(), QSize(400, 300));
}
