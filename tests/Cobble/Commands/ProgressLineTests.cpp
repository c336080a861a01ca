#include "Commands/ProgressLine.h"

#include "support/TestSupport.h"

#include <QTextStream>

using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(ProgressLine, TellsHowFarItIsAndGoesAway)
{
    QString shown;
    QTextStream stream(&shown);
    {
        ProgressLine line(&stream, u"Working"_s, 200);
        line.setDelay(0);
        line.show(2);
        line.show(3);
        line.show(200);
    }
    EXPECT_EQ(shown, u"\rWorking: 1 %\rWorking: 100 %\r\x1b[K");
}

TEST(ProgressLine, KeepsQuietIfNobodyLooksOrWorkIsShort)
{
    QString shown;
    QTextStream stream(&shown);
    {
        ProgressLine line(&stream, u"Working"_s, 10);
        line.show(5); // well within half a second
        ProgressLine nobody(nullptr, u"Working"_s, 10);
        nobody.setDelay(0);
        nobody.show(5);
        ProgressLine nothing(&stream, u"Working"_s, 0);
        nothing.setDelay(0);
        nothing.show(5);
    }
    EXPECT_EQ(shown, QString());
}
