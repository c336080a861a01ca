#include <KTUtility/Platform/Text/UTF8_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

TEST(UTF8, IsThatOfTheText)
{
    EXPECT_EQ(utf8Of({}), QByteArray());
    EXPECT_EQ(utf8Of(u"aé日😀"), QByteArray("aé日😀"));
    EXPECT_EQ(utf8Of(QString(QChar(0))), QByteArray("\0", 1));
}

TEST(UTF8, ALoneSurrogateIsReplacedWhereverItStands)
{
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    EXPECT_EQ(utf8Of(QString(u"end"_s + high)), QByteArray("end\uFFFD"));
    EXPECT_EQ(utf8Of(QString(high + u"x"_s)), QByteArray("\uFFFDx"));
    EXPECT_EQ(utf8Of(QString(low + u"x"_s)), QByteArray("\uFFFDx"));
    EXPECT_EQ(utf8Of(QString(QString(high) + high + low)), QByteArray("\uFFFD😀"));
}
