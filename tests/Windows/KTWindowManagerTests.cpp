// Which window is the current one, and which dialogs there are.

#include <KTUtility/KTWindowManager>
#include <KTUtility/NSClassRegistry>

#include "DialogSupport.h"
#include "support/TestSupport.h"

#include <QCloseEvent>

using namespace Qt::StringLiterals;
using namespace testing_support;

using KTWindowManagerTests = DialogTest;

namespace {
/// One that cannot be made without its arguments.
class OtherObject : public QObject
{
    Q_OBJECT
};

KT_REGISTER_CLASS(TestDialog)
KT_REGISTER_CLASS(OtherObject)
} // namespace

TEST_F(KTWindowManagerTests, MainWindowsMoveToTheFront)
{
    KTWindowController other(new QWidget);
    EXPECT_EQ(manager->currentMainWindowController(), host.get());
    manager->windowControllerBecameVisible(&other, true);
    manager->windowControllerBecameVisible(&other, true);
    EXPECT_EQ(manager->mainWindowArray(), QList<KTWindowController *>({host.get(), &other}));
    other.windowDidBecomeKey({other.window()});
    EXPECT_EQ(manager->currentMainWindowController(), &other);
    other.showWindow();
    other.close();
    EXPECT_EQ(manager->mainWindowArray(), QList<KTWindowController *>({host.get()}));
}

TEST_F(KTWindowManagerTests, AWindowMayStayOpen)
{
    class Stubborn : public QWidget
    {
        void closeEvent(QCloseEvent *event) override { event->ignore(); }
    };
    KTWindowController stubborn(new Stubborn);
    stubborn.showWindow();
    manager->windowControllerBecameMain(&stubborn);
    stubborn.close();
    EXPECT_TRUE(manager->mainWindowArray().contains(&stubborn));
}

TEST_F(KTWindowManagerTests, RunningDialogsAreNoMainWindows)
{
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    first.windowDidBecomeKey({first.window()});
    EXPECT_EQ(manager->currentMainWindowController(), host.get());
    first.endDialog();
    turn();
    first.windowDidBecomeKey({first.window()});
    EXPECT_EQ(manager->currentMainWindowController(), &first);
    manager->windowControllerBecameVisible(&first, false);
}

TEST_F(KTWindowManagerTests, DialogsAreMadeOnceByTheirClass)
{
    KTWindowManager fresh;
    const QString name = u"TestDialog"_s;
    EXPECT_EQ(fresh.dialogControllerForKey(name), nullptr);
    fresh.registerDialogControllerClassName(name);
    KTDialogController *const made = fresh.dialogControllerForKey(name);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(fresh.dialogControllerForKey(name), made);
    EXPECT_TRUE(fresh.currentLoadedDialog().contains(name));
    fresh.registerDialogControllerClassName(u"OtherObject"_s);
    EXPECT_EQ(fresh.dialogControllerForKey(u"OtherObject"_s), nullptr);
    fresh.registerDialogControllerClassName(u"Nobody"_s);
    EXPECT_EQ(fresh.dialogControllerForKey(u"Nobody"_s), nullptr);
    fresh.registerDialogController(nullptr, name);
    EXPECT_FALSE(fresh.currentLoadedDialog().contains(name));
}

TEST_F(KTWindowManagerTests, QueuesDialogsToTheCurrentWindow)
{
    const QString key = u"ready"_s;
    const auto dialog = std::make_shared<TestDialog>();
    EXPECT_FALSE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    manager->registerDialogController(dialog, key);
    EXPECT_TRUE(manager->queueDialogToCurrentMainWindowForKey(key, false));
    EXPECT_EQ(dialog->runs, 0);
    host->runDialogQueue();
    EXPECT_TRUE(dialog->window()->isVisible());
    dialog->endDialog();
    turn();
    EXPECT_TRUE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    EXPECT_EQ(dialog->runs, 2);
    dialog->endDialog();
    turn();
    manager->windowControllerBecameVisible(host.get(), false);
    EXPECT_FALSE(manager->queueDialogToCurrentMainWindowForKey(key, true));
    manager->registerDialogController(nullptr, key);
}

TEST_F(KTWindowManagerTests, WithoutAWindowNothingIsMade)
{
    KTWindowManager fresh;
    fresh.registerDialogControllerClassName(u"TestDialog"_s);
    EXPECT_EQ(fresh.currentMainWindowController(), nullptr);
    EXPECT_FALSE(fresh.queueDialogToCurrentMainWindowForKey(u"TestDialog"_s, true));
    EXPECT_TRUE(fresh.currentLoadedDialog().isEmpty());
}

TEST_F(KTWindowManagerTests, DescriptionsNameWindowsAndDialogs)
{
    host->addDialogControllerToQueue(&first);
    EXPECT_TRUE(host->description().startsWith(u"<KTWindowController 0x"));
    EXPECT_TRUE(host->description().contains(u">\nDialogQueue:("));
    EXPECT_TRUE(host->description().contains(u"<TestDialog 0x"));
    EXPECT_TRUE(host->description().endsWith(u")\n"));
    const QString text = manager->description();
    EXPECT_TRUE(text.contains(u"    "_s + host->description())) << text.toStdString();
    for (const char16_t *part :
         {u"<KTWindowManager 0x", u"\nWindows:(", u"\nDialog Classnames:", u"\nLoaded dialogs:"})
        EXPECT_TRUE(text.contains(QString::fromUtf16(part))) << text.toStdString();
}

#include "KTWindowManagerTests.moc"
