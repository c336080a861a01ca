#include <KTUtility/NSWindowController>

#include "support/FileTree.h"
#include "support/TestSupport.h"

#include <QDialog>
#include <QLineEdit>
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
