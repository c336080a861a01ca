#include <KTUtility/NSWindowController>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TEST(NSWindowController, ReadsItsWindowFromAnInterfaceFile)
{
    testing_support::needApplication();
    const testing_support::FileTree tree;
    tree.add(u"Editor.ui"_s,
             "<ui version=\"4.0\"><class>Editor</class><widget class=\"QWidget\" name=\"Editor\">"
             "<layout class=\"QVBoxLayout\"><item><widget class=\"QLineEdit\" name=\"name\"/>"
             "</item></layout></widget></ui>");
    class Editor : public NSWindowController
    {
    public:
        using NSWindowController::NSWindowController;
        int loads = 0;

    protected:
        void windowDidLoad() override { ++loads; }
    };
    Editor editor(tree.path(u"Editor.ui"_s));
    EXPECT_FALSE(editor.isWindowLoaded());
    EXPECT_NE(editor.outlet<QLineEdit>(u"name"_s), nullptr);
    EXPECT_EQ(editor.outlet<QDialog>(u"name"_s), nullptr);
    EXPECT_EQ(editor.loads, 1);
    EXPECT_EQ(NSWindowController::delegateOf(editor.window()), &editor);
    Editor missing(tree.path(u"None.ui"_s));
    EXPECT_EQ(missing.window(), nullptr);
    missing.showWindow();
    missing.close();
    tree.add(u"Bad.ui"_s, "<ui");
    Editor bad(tree.path(u"Bad.ui"_s));
    EXPECT_EQ(bad.window(), nullptr);
}

namespace {
/// Counts what closes a window, and forbids it while told so.
class CloseFilter : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() != QEvent::Close)
            return false;
        ++closings;
        if (forbids)
            event->ignore();
        return forbids;
    }

    int closings = 0;
    bool forbids = false;
};

class ClosingController : public NSWindowController
{
public:
    using NSWindowController::NSWindowController;
    void windowWillClose(const NSNotification &) override { ++closings; }

    int closings = 0;
};

class HidingWindow : public QWidget
{
protected:
    void closeEvent(QCloseEvent *event) override
    {
        hide();
        event->ignore();
    }
};
} // namespace

TEST(NSWindowController, FiltersOfTheWindowSeeItCloseOnce)
{
    testing_support::needApplication();
    auto *const window = new QWidget;
    CloseFilter earlier;
    CloseFilter later;
    window->installEventFilter(&earlier);
    ClosingController controller(window);
    window->installEventFilter(&later);
    for (int round = 1; round <= 2; ++round) {
        controller.showWindow();
        controller.close();
        EXPECT_EQ(earlier.closings, round);
        EXPECT_EQ(later.closings, round);
        EXPECT_EQ(controller.closings, round);
        EXPECT_FALSE(window->isVisible());
    }
    controller.showWindow();
    earlier.forbids = true;
    controller.close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(controller.closings, 2);
}

TEST(NSWindowController, AWindowThatOnlyHidesDoesNotClose)
{
    testing_support::needApplication();
    ClosingController controller(new HidingWindow);
    controller.showWindow();
    controller.close();
    EXPECT_FALSE(controller.window()->isVisible());
    EXPECT_EQ(controller.closings, 0);
}

TEST(NSWindowController, MayBeDeletedWhileItsWindowCloses)
{
    class Window : public QWidget
    {
    public:
        Window(std::unique_ptr<NSWindowController> *controller, int *closings)
            : _controller(controller), _closings(closings)
        {
        }

    protected:
        void closeEvent(QCloseEvent *) override
        {
            ++*_closings;
            _controller->reset(); // and with it this window
        }

    private:
        std::unique_ptr<NSWindowController> *_controller;
        int *_closings;
    };
    testing_support::needApplication();
    std::unique_ptr<NSWindowController> controller;
    int closings = 0;
    const QPointer<QWidget> window(new Window(&controller, &closings));
    controller = std::make_unique<NSWindowController>(window);
    controller->showWindow();
    controller->close();
    EXPECT_EQ(closings, 1);
    EXPECT_EQ(controller, nullptr);
    EXPECT_TRUE(window.isNull());
}

TEST(NSWindowController, AnExceptionOfADelegateLeavesNoEvent)
{
    testing_support::needApplication();
    class Failing : public NSWindowController
    {
    public:
        Failing() : NSWindowController(new QWidget) {}
        void windowWillClose(const NSNotification &) override { throw 5; }
    };
    Failing controller;
    controller.showWindow();
    const QString log = testing_support::standardErrorOf([&] { controller.close(); });
    EXPECT_TRUE(log.endsWith(u"*** exception in windowWillClose(): unknown exception\n"))
        << log.toStdString();
    EXPECT_FALSE(controller.window()->isVisible());
}
