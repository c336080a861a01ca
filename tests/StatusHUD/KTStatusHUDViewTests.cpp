// What the display draws, and whom it notifies of clicks.

#include <KTUtility/KTStatusHUDView>

#include "HUDSupport.h"

#include "support/PictureSupport.h"

#include <QPainter>
#include <QTest>

using namespace testing_support;

using KTStatusHUDViewTests = HUDTest;

TEST(KTStatusHUDView, RoundsItsCornersByTouchingArcs)
{
    const QRectF rect(3, 5, 100, 60);
    const QPainterPath path = KTStatusHUDView::bezierPathWithRoundRectInRect(rect, 8);
    EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(11, 5));
    EXPECT_EQ(QPointF(path.elementAt(1)), QPointF(95, 5));
    EXPECT_NEAR(path.boundingRect().width(), 100, 1e-9);
    EXPECT_NEAR(path.boundingRect().bottom(), 65, 1e-9);
    EXPECT_TRUE(path.contains(QPointF(6, 8)));
    EXPECT_FALSE(path.contains(QPointF(4, 6)));
    EXPECT_EQ(QPointF(path.currentPosition()), QPointF(11, 5));
}

TEST(KTStatusHUDView, TakesOddRadiiAndRectangles)
{
    for (const float radius : {0.0F, -3.0F, float(NotANumber), float(Infinite)})
        EXPECT_TRUE(KTStatusHUDView::bezierPathWithRoundRectInRect({0, 0, 10, 10}, radius)
                        .contains(QPointF(0.1, 0.1)));
    EXPECT_EQ(
        KTStatusHUDView::bezierPathWithRoundRectInRect({0, NotANumber, 5, 5}, 2).elementCount(), 0);
    EXPECT_EQ(KTStatusHUDView::bezierPathWithRoundRectInRect({0, 0, Infinite, 5}, 2).elementCount(),
              0);
    EXPECT_TRUE(
        KTStatusHUDView::bezierPathWithRoundRectInRect({5, 5, 0, 0}, 0).boundingRect().isEmpty());
}

TEST_F(KTStatusHUDViewTests, ThePanelDrawsTheRectangleThatItIsAsked)
{
    KTStatusHUDView panel;
    QImage image(40, 40, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    panel.drawRect(painter, {0, 0, 40, 40});
    EXPECT_EQ(inkOf(image), 0);
    panel.setBackgroundColor(Qt::red);
    EXPECT_EQ(panel.backgroundColor(), QColor(Qt::red));
    panel.drawRect(painter, {10, 10, 20, 20});
    painter.end();
    EXPECT_COLOR(image.pixelColor(20, 20), Qt::red, 0);
    EXPECT_EQ(image.pixelColor(10, 10).alpha(), 0);
    EXPECT_EQ(image.pixelColor(5, 20).alpha(), 0);
}

namespace {
/// Counts clicks.
class Clicked : public QObject
{
    Q_OBJECT

public:
    Q_INVOKABLE void userClickedHUDOnEvent(QMouseEvent *event)
    {
        ++clicks;
        position = event->position();
    }
    int clicks = 0;
    QPointF position;
};
} // namespace

TEST_F(KTStatusHUDViewTests, ThePanelTellsItsDelegateOfClicks)
{
    KTStatusHUDView panel;
    panel.resize(50, 50);
    QTest::mouseClick(&panel, Qt::LeftButton);
    auto delegate = std::make_unique<Clicked>();
    panel.setDelegate(delegate.get());
    EXPECT_EQ(panel.delegate(), delegate.get());
    QTest::mouseClick(&panel, Qt::LeftButton, {}, {7, 9});
    EXPECT_EQ(delegate->clicks, 1);
    EXPECT_EQ(delegate->position, QPointF(7, 9));
    QTest::mouseClick(&panel, Qt::RightButton);
    QTest::mouseClick(&panel, Qt::MiddleButton);
    EXPECT_EQ(delegate->clicks, 1);
    QObject other;
    panel.setDelegate(&other);
    QTest::mouseClick(&panel, Qt::LeftButton);
    EXPECT_EQ(delegate->clicks, 1);
    panel.setDelegate(delegate.get());
    delegate.reset();
    EXPECT_EQ(panel.delegate(), nullptr);
    QTest::mouseClick(&panel, Qt::LeftButton);
}

#include "KTStatusHUDViewTests.moc"
