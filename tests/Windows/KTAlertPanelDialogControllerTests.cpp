#include <KTUtility/KTAlertPanelDialogController>

#include "DialogSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

using KTAlertPanelDialogControllerTests = DialogTest;

TEST_F(KTAlertPanelDialogControllerTests, AlertsTakeTheirTurn)
{
    class Alert : public KTAlertPanelDialogController
    {
    public:
        void runDialog() override
        {
            KTAlertPanelDialogController::runDialog();
            ++runs;
        }
        int runs = 0;
    } alert;
    host->addDialogControllerToQueue(&alert);
    host->addDialogControllerToQueue(&first);
    host->runDialogQueue();
    EXPECT_EQ(alert.runs, 1);
    EXPECT_TRUE(alert.isRunningAsDialog());
    EXPECT_FALSE(alert.isWindowLoaded());
    EXPECT_EQ(alert.hostWindowController(), host.get());
    alert.endDialog();
    EXPECT_FALSE(alert.isRunningAsDialog());
    EXPECT_EQ(alert.hostWindowController(), nullptr);
    EXPECT_EQ(first.runs, 0);
    turn();
    EXPECT_TRUE(first.window()->isVisible());
    first.endDialog();
    turn();
}
