#include "DesktopDisplay.h"

#include "support/TestSupport.h"

#include <QTest>
#include <QWidget>

namespace {
/// The display is there while tests run, and not while they are only listed.
class DesktopEnvironment : public testing::Environment
{
public:
    void SetUp() override
    {
        ASSERT_TRUE(_display.start()) << "there is no X server or window manager to test with";
        testing_support::needApplication();
        waitForWindowManager();
    }

private:
    /// It is there when a window that is shown gets the keyboard.
    static void waitForWindowManager()
    {
        for (int attempt = 0; attempt < 100; ++attempt) {
            QWidget probe;
            probe.show();
            if (QTest::qWaitForWindowActive(&probe, 300))
                return;
        }
        FAIL() << "the window manager does not answer";
    }

    DesktopDisplay _display;
};
} // namespace

int main(int argc, char **argv)
{
    // What has to hold in several locales is run once in each.
    if (qEnvironmentVariableIsSet("DESKTOP_TEST_LOCALE"))
        testing_support::pinAllButLocaleAndZone("xcb");
    else
        testing_support::pinEnvironment("xcb");
    ::testing::AddGlobalTestEnvironment(new DesktopEnvironment);
    return testing_support::runTests(argc, argv);
}
