#include <KTUtility/NSLog>

#include "support/TestSupport.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

TEST(NSLog, WritesOneLineInThePlatformsForm)
{
    const QString log = testing_support::standardErrorOf([] { NSLog(u"%@ is %d", u"é", 7); });
    static const QRegularExpression form(
        u"^\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\.\\d{3} \\S+\\[\\d+:[0-9a-f]+\\] é is 7\\n$"_s);
    EXPECT_TRUE(form.match(log).hasMatch()) << log.toStdString();
}
