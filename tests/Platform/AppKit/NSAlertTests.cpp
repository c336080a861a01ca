#include <KTUtility/NSAlert>

#include "support/TestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPointer>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {
class NSAlertTests : public testing_support::WindowedTest
{
protected:
    NSAlertTests()
    {
        QApplication::setQuitOnLastWindowClosed(false);
        window.show();
    }
    ~NSAlertTests() override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_TRUE(alert.isNull());
    }

    static void press(const NSAlert *pressed, int button)
    {
        qobject_cast<QMessageBox *>(pressed->window())->buttons().at(button)->click();
    }

    QWidget window;
    QPointer<NSAlert> alert = new NSAlert(u"Delete?"_s, u"Delete"_s, u"Keep"_s, {}, {});
};
} // namespace

TEST_F(NSAlertTests, TellsAnObjectThatIsThere)
{
    QObject context;
    int code = 99;
    alert->beginSheetModalForWindow(&window, &context,
                                    [&](NSAlert *, int returnCode) { code = returnCode; });
    press(alert, 0);
    EXPECT_EQ(code, NSAlertDefaultReturn);
}

TEST_F(NSAlertTests, TellsNobodyOnceTheObjectIsGone)
{
    auto context = std::make_unique<QObject>();
    alert->beginSheetModalForWindow(&window, context.get(), [](NSAlert *, int) { FAIL(); });
    context.reset();
    press(alert, 0);
    EXPECT_FALSE(alert->window()->isVisible());
}

TEST_F(NSAlertTests, AnExceptionEndsWithTheAlert)
{
    alert->beginSheetModalForWindow(&window,
                                    [](NSAlert *, int) { throw std::runtime_error("no more"); });
    const QString log = testing_support::standardErrorOf([&] { press(alert, 0); });
    EXPECT_TRUE(log.endsWith(u"*** exception in the end of an alert: no more\n"))
        << log.toStdString();
}
