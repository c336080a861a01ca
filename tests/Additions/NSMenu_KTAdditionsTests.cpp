#include <KTUtility/NSFont>
#include <KTUtility/NSMenu_KTAdditions>

#include "support/TestSupport.h"

#include <QMenu>

#include <climits>

using namespace Qt::StringLiterals;

namespace {
/// A font whose bounding rectangle is 20 pixels high, as far as whole pixels allow.
QFont twentyHigh()
{
    const qreal perPixel =
        NSFont::boundingRectForFont(NSFont::systemFontOfSize(1000)).height() / 1000;
    return NSFont::systemFontOfSize(qRound(20 / perPixel));
}

class NSMenu_KTAdditionsTests : public testing_support::WindowedTest
{
protected:
    NSMenu_KTAdditionsTests()
    {
        menu.addAction(u"Cut"_s);
        menu.addSeparator();
        menu.addAction(u"Paste"_s);
    }
    float upTo(int index) { return KTAdditions::heightAdjustmentForItemAtIndex(menu, index, font); }

    QMenu menu;
    QFont font = twentyHigh();
    const float height = float(NSFont::boundingRectForFont(font).height());
};
} // namespace

TEST_F(NSMenu_KTAdditionsTests, AddsUpTheItems)
{
    EXPECT_NEAR(upTo(0), 15, 0.9);
    EXPECT_EQ(upTo(0), height - 5);
    EXPECT_EQ(upTo(1), height - 5 + 11);
    EXPECT_EQ(upTo(2), height - 5 + 11 + height - 5);
}

TEST_F(NSMenu_KTAdditionsTests, EndsWithTheMenu)
{
    EXPECT_EQ(upTo(3), upTo(2));
    EXPECT_EQ(upTo(INT_MAX), upTo(2));
    EXPECT_EQ(upTo(-1), 0);
    EXPECT_EQ(upTo(INT_MIN), 0);
    EXPECT_EQ(KTAdditions::heightAdjustmentForItemAtIndex(QMenu(), 0, font), 0);
}

TEST_F(NSMenu_KTAdditionsTests, HiddenItemsCount)
{
    menu.actions().at(0)->setVisible(false);
    EXPECT_EQ(upTo(2), height - 5 + 11 + height - 5);
}

TEST_F(NSMenu_KTAdditionsTests, FontsThatDoNotExistHaveAStandIn)
{
    font = QFont(u"No Such Font"_s);
    EXPECT_GT(upTo(0), 0);
}
