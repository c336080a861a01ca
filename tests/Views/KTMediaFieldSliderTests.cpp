#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/KTMediaFieldSliderCell>
#include <KTUtility/NSImage>
#include <KTUtility/NSWindowController>

#include "RecordingCell.h"
#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

using KTMediaFieldSliderTests = testing_support::WindowedTest;

namespace {
constexpr char Form[] = R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="form"><widget class="KTMediaFieldSlider" name="zoom">
 <property name="minimum"><number>25</number></property>
 <property name="maximum"><number>400</number></property>
 <property name="value"><number>100</number></property>
 <property name="orientation"><enum>Qt::Vertical</enum></property>
 <property name="tickPosition"><enum>QSlider::TicksBelow</enum></property>
</widget></widget></ui>)";
} // namespace

TEST_F(KTMediaFieldSliderTests, ThePictureStandsOverTheKnob)
{
    const KTMediaFieldSliderCell cell;
    ASSERT_FALSE(cell.knobImage().isNull());
    const QSizeF size = NSImage::sizeOf(cell.knobImage());
    EXPECT_EQ(cell.knobOrigin({30, 4, 20, 12}), QPointF(40 - size.width() / 2, 15));
    EXPECT_EQ(cell.knobOrigin({0, 0, 0, 0}), QPointF(-size.width() / 2, -1));
}

TEST_F(KTMediaFieldSliderTests, ThePictureIsDrawnWithItsBottomThere)
{
    KTMediaFieldSliderCell cell;
    QImage canvas = NSImage::imageOfSize({60, 40});
    QPainter painter(&canvas);
    cell.drawKnob(painter, {20, 10, 15, 20});
    painter.end();
    QImage expected = NSImage::imageOfSize({60, 40});
    QPainter expecting(&expected);
    const int height = cell.knobImage().height();
    expecting.drawImage(QPoint(20, 10 + 20 - 1 - height), cell.knobImage());
    expecting.end();
    EXPECT_EQ(canvas, expected);
    EXPECT_GT(testing_support::inkOf(canvas), 100);
}

TEST_F(KTMediaFieldSliderTests, NothingIsDrawnAtNoPlace)
{
    KTMediaFieldSliderCell cell;
    QImage canvas = NSImage::imageOfSize({60, 40});
    QPainter painter(&canvas);
    cell.drawKnob(painter, {testing_support::NotANumber, 10, 15, 20});
    cell.drawKnob(painter, {0, 10, 15, testing_support::Infinite});
    cell.drawInterior(painter);
    painter.end();
    EXPECT_TRUE(cell.knobRect().isEmpty());
    EXPECT_EQ(cell.controlView(), nullptr);
}

TEST_F(KTMediaFieldSliderTests, DrawsTheBarAndThePicture)
{
    KTMediaFieldSlider slider;
    slider.resize(200, slider.sizeHint().height());
    slider.setValue(40);
    const QImage drawn = slider.grab().toImage();
    const auto *const cell = dynamic_cast<KTMediaFieldSliderCell *>(slider.cell());
    ASSERT_NE(cell, nullptr);
    const QImage &picture = cell->knobImage();
    const QPointF origin = cell->knobOrigin(cell->knobRect());
    const QPoint middle(picture.width() / 2, 3);
    EXPECT_COLOR(drawn.pixelColor(origin.toPoint() - QPoint(0, picture.height()) + middle),
                 picture.pixelColor(middle), 2);
    // The picture has room above.
    EXPECT_GE(origin.y() - picture.height(), 0);
    // And nothing of the style's knob: the slider is its bar elsewhere.
    QSlider plain(Qt::Horizontal);
    plain.resize(slider.size());
    plain.setValue(40);
    EXPECT_FALSE(testing_support::areAlike(drawn, plain.grab().toImage()));
    EXPECT_EQ(drawn.pixelColor(190, drawn.height() / 2),
              plain.grab().toImage().pixelColor(190, drawn.height() / 2));
}

TEST_F(KTMediaFieldSliderTests, ThePictureMovesWithTheValue)
{
    KTMediaFieldSlider slider;
    slider.resize(200, 30);
    slider.setValue(0);
    const QRectF start = slider.cell()->knobRect();
    slider.setValue(99);
    EXPECT_GT(slider.cell()->knobRect().x(), start.x() + 150);
    const QImage atEnd = slider.grab().toImage();
    slider.setValue(0);
    EXPECT_NE(slider.grab().toImage(), atEnd);
}

TEST_F(KTMediaFieldSliderTests, TakesTheMouse)
{
    KTMediaFieldSlider slider;
    slider.resize(200, 30);
    slider.show();
    const QPoint knob = slider.cell()->knobRect().center().toPoint();
    QTest::mousePress(&slider, Qt::LeftButton, {}, knob);
    QTest::mouseMove(&slider, knob + QPoint(100, 0));
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, knob + QPoint(100, 0));
    EXPECT_GT(slider.value(), 40);
}

TEST_F(KTMediaFieldSliderTests, TheSettingsOfAnInterfaceFileAreNotCarriedOver)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"Form.ui"_s);
    testing_support::writeFile(path, Form);
    NSWindowController controller(path);
    auto *const zoom = controller.outlet<KTMediaFieldSlider>(u"zoom"_s);
    ASSERT_NE(zoom, nullptr);
    const QSlider fresh;
    EXPECT_EQ(zoom->minimum(), fresh.minimum());
    EXPECT_EQ(zoom->maximum(), fresh.maximum());
    EXPECT_EQ(zoom->value(), fresh.value());
    EXPECT_EQ(zoom->tickPosition(), fresh.tickPosition());
    EXPECT_EQ(zoom->orientation(), Qt::Vertical);
    EXPECT_NE(dynamic_cast<KTMediaFieldSliderCell *>(zoom->cell()), nullptr);
    zoom->setRange(25, 400);
    zoom->setValue(100);
    EXPECT_EQ(zoom->value(), 100);
}

TEST_F(KTMediaFieldSliderTests, AwakeningReplacesTheCell)
{
    KTMediaFieldSlider slider;
    slider.setRange(5, 10);
    slider.setCell(std::make_unique<RecordingCell>());
    const NSSliderCell *const before = slider.cell();
    EXPECT_EQ(slider.maximum(), 99);
    slider.awakeFromNib();
    EXPECT_NE(slider.cell(), before);
    EXPECT_NE(dynamic_cast<KTMediaFieldSliderCell *>(slider.cell()), nullptr);
    EXPECT_EQ(slider.cell()->controlView(), &slider);
}
