#include "KTMediaFieldSliderCell.h"

#include <KTUtility/Platform/AppKit/NSImage.h>

using namespace Qt::StringLiterals;

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
    if (!_knobImage.isNull() && NSImage::isFinite(knobRect))
        painter.drawImage(knobOrigin(knobRect) - QPointF(0, NSImage::sizeOf(_knobImage).height()),
                          _knobImage);
}
