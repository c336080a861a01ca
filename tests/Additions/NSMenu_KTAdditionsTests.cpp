#include <KTUtility/NSColor_KTAdditions>
#include <KTUtility/NSFont>
#include <KTUtility/NSIndexPath_KTAdditions>
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

class MenuHeight : public testing_support::WindowedTest
{
protected:
    MenuHeight()
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

TEST_F(MenuHeight, AddsUpTheItems)
{
    EXPECT_NEAR(upTo(0), 15, 0.9);
    EXPECT_EQ(upTo(0), height - 5);
    EXPECT_EQ(upTo(1), height - 5 + 11);
    EXPECT_EQ(upTo(2), height - 5 + 11 + height - 5);
}

TEST_F(MenuHeight, EndsWithTheMenu)
{
    EXPECT_EQ(upTo(3), upTo(2));
    EXPECT_EQ(upTo(INT_MAX), upTo(2));
    EXPECT_EQ(upTo(-1), 0);
    EXPECT_EQ(upTo(INT_MIN), 0);
    EXPECT_EQ(KTAdditions::heightAdjustmentForItemAtIndex(QMenu(), 0, font), 0);
}

TEST_F(MenuHeight, HiddenItemsCount)
{
    menu.actions().at(0)->setVisible(false);
    EXPECT_EQ(upTo(2), height - 5 + 11 + height - 5);
}

TEST_F(MenuHeight, FontsThatDoNotExistHaveAStandIn)
{
    font = QFont(u"No Such Font"_s);
    EXPECT_GT(upTo(0), 0);
}

TEST(IndexPath, Prepending)
{
    const NSIndexPath inSection{4, 1};
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex(inSection, 2), (NSIndexPath{2, 4, 1}));
    EXPECT_EQ(inSection.length(), 2);
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex({}, 7), NSIndexPath{7});
    EXPECT_EQ(KTAdditions::indexPathByPrependingIndex({}, UINT_MAX).indexAtPosition(0), UINT_MAX);
}

TEST(IndexPath, LevelsAndOrder)
{
    const NSIndexPath path{2, 0, 5};
    EXPECT_EQ(path.indexAtPosition(1), 0U);
    EXPECT_EQ(path.indexAtPosition(3), NSNotFound);
    EXPECT_EQ(path.indexAtPosition(-1), NSNotFound);
    EXPECT_EQ(path.indexPathByAddingIndex(1), (NSIndexPath{2, 0, 5, 1}));
    EXPECT_EQ(path.indexPathByRemovingLastIndex(), (NSIndexPath{2, 0}));
    EXPECT_EQ(NSIndexPath().indexPathByRemovingLastIndex(), NSIndexPath());
    EXPECT_LT((NSIndexPath{2, 0}), path);
    EXPECT_LT(path, (NSIndexPath{2, 1}));
    EXPECT_LT(NSIndexPath(), NSIndexPath{0});
}

TEST(ColorText, IsRedGreenBlueAndAlpha)
{
    EXPECT_EQ(KTAdditions::ktColorWithString(u"1 0.5 0 1"_s), QColor::fromRgbF(1, 0.5F, 0));
    EXPECT_EQ(KTAdditions::ktStringRepresentation(QColor(Qt::red)), u"1 0 0 1"_s);
}
