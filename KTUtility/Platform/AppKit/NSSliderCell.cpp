#include "NSSliderCell.h"

#include <QPainter>
#include <QSlider>
#include <QStyle>
#include <QStyleOptionSlider>

namespace {
/// Lets the option of a slider, which only the slider may fill, be read.
class SliderAccess : public QSlider
{
public:
    static QStyleOptionSlider optionOf(const QSlider *slider)
    {
        QStyleOptionSlider option;
        (slider->*(&SliderAccess::initStyleOption))(&option);
        return option;
    }
};

void drawPart(QPainter &painter, const QSlider *slider, QStyle::SubControls parts)
{
    QStyleOptionSlider option = SliderAccess::optionOf(slider);
    option.subControls = parts;
    slider->style()->drawComplexControl(QStyle::CC_Slider, &option, &painter, slider);
}
} // namespace

NSSliderCell::~NSSliderCell() = default;

QRectF NSSliderCell::knobRect() const
{
    if (!_controlView)
        return {};
    const QStyleOptionSlider option = SliderAccess::optionOf(_controlView);
    return _controlView->style()->subControlRect(QStyle::CC_Slider, &option,
                                                 QStyle::SC_SliderHandle, _controlView);
}

void NSSliderCell::drawInterior(QPainter &painter)
{
    drawBarInside(painter);
    drawKnob(painter, knobRect());
}

void NSSliderCell::drawBarInside(QPainter &painter)
{
    if (!_controlView)
        return;
    const bool hasTicks = _controlView->tickPosition() != QSlider::NoTicks;
    drawPart(painter, _controlView,
             QStyle::SC_SliderGroove | (hasTicks ? QStyle::SC_SliderTickmarks : QStyle::SC_None));
}

void NSSliderCell::drawKnob(QPainter &painter, const QRectF & /*knobRect*/)
{
    if (_controlView)
        drawPart(painter, _controlView, QStyle::SC_SliderHandle);
}
