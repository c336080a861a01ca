#include <KTUtility/NSBezierPath>

#include "support/PictureSupport.h"
#include "support/TestSupport.h"

using namespace testing_support;

TEST(NSBezierPath, AnglesAreCountedWhereYPointsUp)
{
    QPainterPath quarter;
    quarter.moveTo(0, 0);
    NSBezierPath::appendArcWithCenter(quarter, {0, 0}, 10, 90, 0, true);
    quarter.closeSubpath();
    EXPECT_EQ(QPointF(quarter.elementAt(1)), QPointF(0, 10));
    EXPECT_TRUE(quarter.contains(QPointF(5, 5)));
    EXPECT_FALSE(quarter.contains(QPointF(5, -5)));
    QPainterPath rest;
    rest.moveTo(0, 0);
    NSBezierPath::appendArcWithCenter(rest, {0, 0}, 10, 90, 0, false);
    EXPECT_FALSE(rest.contains(QPointF(5, 5)));
    EXPECT_TRUE(rest.contains(QPointF(-5, 5)));
    EXPECT_TRUE(rest.contains(QPointF(5, -5)));
}

TEST(NSBezierPath, AnArcAloneBeginsAtItsStart)
{
    QPainterPath circle;
    NSBezierPath::appendArcWithCenter(circle, {20, 20}, 10, 0, 360, false);
    EXPECT_NEAR(circle.boundingRect().left(), 10, 0.01);
    EXPECT_NEAR(circle.boundingRect().height(), 20, 0.01);
    QPainterPath nothing;
    NSBezierPath::appendArcWithCenter(nothing, {NotANumber, 0}, 10, 0, 90, true);
    NSBezierPath::appendArcWithCenter(nothing, {0, 0}, -10, 0, 90, true);
    NSBezierPath::appendArcWithCenter(nothing, {0, 0}, 10, 0, Infinite, true);
    NSBezierPath::appendArcFromPoint(nothing, {0, 0}, {5, NotANumber}, 3);
    EXPECT_EQ(nothing.elementCount(), 0);
}

TEST(NSBezierPath, CornersAreRoundedOnBothSides)
{
    QPainterPath left;
    left.moveTo(0, 0);
    NSBezierPath::appendArcFromPoint(left, {10, 0}, {10, 10}, 4);
    EXPECT_EQ(QPointF(left.elementAt(1)), QPointF(6, 0));
    EXPECT_NEAR(left.currentPosition().x(), 10, 1e-9);
    EXPECT_NEAR(left.currentPosition().y(), 4, 1e-9);
    QPainterPath right;
    right.moveTo(0, 0);
    NSBezierPath::appendArcFromPoint(right, {10, 0}, {10, -10}, 4);
    EXPECT_NEAR(right.currentPosition().y(), -4, 1e-9);
    QPainterPath sharp;
    sharp.moveTo(0, 0);
    NSBezierPath::appendArcFromPoint(sharp, {10, 0}, {20, 0}, 4);
    NSBezierPath::appendArcFromPoint(sharp, {30, 0}, {30, 5}, 0);
    EXPECT_EQ(sharp.elementCount(), 3);
    EXPECT_EQ(sharp.currentPosition(), QPointF(30, 0));
}
