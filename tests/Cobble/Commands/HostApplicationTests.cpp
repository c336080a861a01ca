#include "Commands/HostApplication.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

TEST(HostApplication, MessagesOfLibrariesCannotSteerTheTerminal)
{
    testing_support::needApplication();
    const QtMessageHandler before = qInstallMessageHandler(nullptr);
    passMessagesAsPrintable();
    // A second time makes no circle.
    passMessagesAsPrintable();
    const QString shown = testing_support::standardErrorOf(
        [] { qWarning("cannot read a\x1b[2J\ncobble: all is well\r%s", "\u202egnp"); });
    qInstallMessageHandler(before);
    EXPECT_EQ(shown, u"cannot read a\\u001b[2J\\ncobble: all is well\\r\\u202egnp\n"_s);
}
