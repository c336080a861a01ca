// A slider with a picture for its knob.

#include <KTUtility/KTMediaFieldSlider>
#include <KTUtility/KTMediaFieldSliderCell>

#include "RecordingCell.h"
#include "support/PictureSupport.h"
#include "support/TestSupport.h"

#include <QPainter>

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
