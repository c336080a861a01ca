#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QRectF>

class QPainter;
class QSlider;

/// Draws a slider: the bar, and on it the knob. Subclasses draw one of them in their way.
///
/// Coordinates are those of the slider, with y downwards, as sliders have them on the platform,
/// too.
///
/// \code
/// class RoundKnob : public NSSliderCell
/// {
///     void drawKnob(QPainter &painter, const QRectF &knobRect) override
///     {
///         painter.drawEllipse(knobRect);
///     }
/// };
/// \endcode
class KTUTILITY_EXPORT NSSliderCell
{
public:
    NSSliderCell() = default;
    virtual ~NSSliderCell();
    NSSliderCell(const NSSliderCell &) = delete;
    NSSliderCell &operator=(const NSSliderCell &) = delete;

    /// The slider that it draws; null if it draws none yet.
    QSlider *controlView() const { return _controlView; }
    void setControlView(QSlider *slider) { _controlView = slider; }

    /// Where the knob is now; empty without a slider.
    QRectF knobRect() const;

    /// Draws the bar with its marks, then the knob.
    void drawInterior(QPainter &painter);
    /// Draws what lies below the knob: here, as the style does.
    virtual void drawBarInside(QPainter &painter);
    /// Draws the knob: here, as the style does.
    virtual void drawKnob(QPainter &painter, const QRectF &knobRect);

private:
    QSlider *_controlView = nullptr;
};
