#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/AppKit/NSSliderCell.h>

#include <QImage>
#include <QPointF>

/// Draws a slider with a picture for its knob: the resource "book_dash_sliderthumb", which a
/// program replaces by one of its own of that name. The style's knob is never drawn.
///
/// \code
/// KTMediaFieldSlider slider;
/// slider.setCell(std::make_unique<KTMediaFieldSliderCell>());
/// \endcode
class KTUTILITY_EXPORT KTMediaFieldSliderCell : public NSSliderCell
{
public:
    /// Loads the picture.
    KTMediaFieldSliderCell();

    /// The picture; null if it is missing, and then no knob is drawn.
    const QImage &knobImage() const { return _knobImage; }
    /// Where the bottom left corner of the picture goes: it is centred over the knob, and stands
    /// one point above the knob's lower edge.
    QPointF knobOrigin(const QRectF &knobRect) const;

    /// Draws the picture in place of the knob.
    /// \param painter one of the slider.
    /// \param knobRect in the coordinates of the slider, y downwards.
    void drawKnob(QPainter &painter, const QRectF &knobRect) override;

private:
    QImage _knobImage;
};
