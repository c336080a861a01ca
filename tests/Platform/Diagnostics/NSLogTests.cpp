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

TEST(NSLog, ArgumentsForgeNoLine)
{
    const QString log = testing_support::standardErrorOf(
        [] { NSLog(u"%@:\n%s", u"a\n2026-01-01 forged", "\x1b[2J"); });
    EXPECT_TRUE(log.endsWith(u"] a\\n2026-01-01 forged:\n\\u001b[2J\n")) << log.toStdString();
}

TEST(NSLog, ALoneSurrogateIsReplaced)
{
    const QString log =
        testing_support::standardErrorOf([] { NSLogText(QString(u"end"_s + QChar(0xD83D))); });
    EXPECT_TRUE(log.endsWith(u"] end\uFFFD\n")) << log.toStdString();
}
