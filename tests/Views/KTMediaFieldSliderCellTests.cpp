// A slider with a picture for its knob.

#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/KTMediaFieldSliderCell>

#include "RecordingCell.h"
#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QLineEdit>
#include <QPainter>
#include <QTest>

using KTMediaFieldSliderCellTests = testing_support::WindowedTest;

TEST_F(KTMediaFieldSliderCellTests, CellsDrawBarAndKnob)
{
    KTMediaFieldSlider slider;
    slider.resize(200, 30);
    auto owned = std::make_unique<RecordingCell>();
    RecordingCell *const cell = owned.get();
    slider.setCell(std::move(owned));
    slider.grab();
    EXPECT_EQ(cell->bars, 1);
    ASSERT_EQ(cell->knobs.size(), 1);
    EXPECT_EQ(cell->knobs.first(), cell->knobRect());
}

TEST_F(KTMediaFieldSliderCellTests, ThePictureShowsKeyboardAndDisabledState)
{
    QWidget window;
    KTMediaFieldSlider slider(&window);
    QLineEdit other(&window);
    slider.resize(slider.sizeHint().expandedTo({120, 0}));
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    other.setFocus();
    const QImage plain = slider.grab().toImage();
    slider.setFocus();
    EXPECT_FALSE(testing_support::areAlike(slider.grab().toImage(), plain));
    other.setFocus();
    EXPECT_TRUE(testing_support::areAlike(slider.grab().toImage(), plain));
    // At its beginning, where the bar has no coloured part that could differ.
    slider.setValue(slider.minimum());
    const QRect knob = slider.cell()->knobRect().toAlignedRect();
    const QRect around(knob.x() - 2, 0, knob.width() + 4, knob.top());
    const QImage enabled = slider.grab(around).toImage();
    slider.setEnabled(false);
    EXPECT_FALSE(testing_support::areAlike(slider.grab(around).toImage(), enabled));
}

TEST_F(KTMediaFieldSliderCellTests, PlainCellsDrawAsTheStyleDoes)
{
    KTMediaFieldSlider slider;
    slider.setCell(std::make_unique<NSSliderCell>());
    slider.resize(200, 30);
    QSlider plain(Qt::Horizontal);
    plain.resize(200, 30);
    EXPECT_TRUE(testing_support::areAlike(slider.grab().toImage(), plain.grab().toImage()));
    slider.setCell(nullptr);
    EXPECT_TRUE(testing_support::areAlike(slider.grab().toImage(), plain.grab().toImage()));
    slider.setTickPosition(QSlider::TicksBothSides);
    plain.setTickPosition(QSlider::TicksBothSides);
    slider.setCell(std::make_unique<NSSliderCell>());
    EXPECT_FALSE(testing_support::areAlike(slider.grab().toImage(), plain.grab().toImage()));
}
