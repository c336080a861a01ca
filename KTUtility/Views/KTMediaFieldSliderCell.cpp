#include "KTMediaFieldSliderCell.h"

#include <KTUtility/Platform/AppKit/NSImage.h>

#include <QPainter>
#include <QSlider>

using namespace Qt::StringLiterals;

namespace {
constexpr qreal DisabledOpacity = 0.4;
constexpr qreal FocusFrameWidth = 1.5;
constexpr qreal FocusFrameRadius = 3;

void drawFocusFrame(QPainter &painter, const QRectF &rect, const QColor &color)
{
    const qreal inset = FocusFrameWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, FocusFrameWidth));
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), FocusFrameRadius,
                            FocusFrameRadius);
}
} // namespace

KTMediaFieldSliderCell::KTMediaFieldSliderCell()
    : _knobImage(NSImage::imageNamed(u"book_dash_sliderthumb"_s))
{
}

QPointF KTMediaFieldSliderCell::knobOrigin(const QRectF &knobRect) const
{
    return {knobRect.x() + knobRect.width() * 0.5 - NSImage::sizeOf(_knobImage).width() * 0.5,
            knobRect.y() + knobRect.height() - 1.0};
}

void KTMediaFieldSliderCell::drawKnob(QPainter &painter, const QRectF &knobRect)
{
    if (_knobImage.isNull() || !NSImage::isFinite(knobRect))
        return;
    const QSizeF size = NSImage::sizeOf(_knobImage);
    const QPointF corner = knobOrigin(knobRect) - QPointF(0, size.height());
    const QSlider *const slider = controlView();
    painter.save();
    if (slider && !slider->isEnabled())
        painter.setOpacity(painter.opacity() * DisabledOpacity);
    painter.drawImage(corner, _knobImage);
    if (slider && slider->hasFocus())
        drawFocusFrame(painter, QRectF(corner, size), slider->palette().color(QPalette::Highlight));
    painter.restore();
}
