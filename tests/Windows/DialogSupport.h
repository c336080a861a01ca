#pragma once

#include <KTUtility/KTDialogController>
#include <KTUtility/KTWindowManager>

#include "support/TestSupport.h"

#include <QApplication>
#include <QDialog>

/// A dialog that writes down what becomes of it.
class TestDialog : public KTDialogController
{
    Q_OBJECT

public:
    TestDialog() : KTDialogController(new QDialog) {}

    void configDialog() override
    {
        KTDialogController::configDialog();
        lent = windowDataSourceObjectForKey(QStringLiteral("record"));
        if (endsInConfiguration)
            endDialog();
    }
    void runDialog() override
    {
        ++runs;
        KTDialogController::runDialog();
    }

    QVariant lent;
    int runs = 0;
    bool endsInConfiguration = false;
};

/// A window that is the current one, and two dialogs for its queue.
class DialogTest : public testing_support::WindowedTest
{
protected:
    DialogTest()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        host = std::make_unique<KTWindowController>(new QWidget);
        host->showWindow();
        manager->windowControllerBecameMain(host.get());
    }
    ~DialogTest() override
    {
        host.reset();
        testing_support::turn();
        EXPECT_TRUE(manager->mainWindowArray().isEmpty());
    }

    KTWindowManager *manager = KTWindowManager::sharedWindowManager();
    std::unique_ptr<KTWindowController> host;
    TestDialog first, second;
};
