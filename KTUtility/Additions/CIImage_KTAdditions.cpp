#include "CIImage_KTAdditions.h"

#include <KTUtility/Platform/AppKit/NSGraphicsContext.h>
#include <KTUtility/Platform/AppKit/NSImage.h>

QImage KTAdditions::toNSImageFromRect(const CIImage &receiver, const QRectF &rect)
{
    QImage image = receiver.isNull() ? QImage() : NSImage::imageOfSize(rect.size());
    if (image.isNull())
        return image;
    QPainter painter(&image);
    NSGraphicsContext::turnUpright(painter, image.height());
    NSImage::drawInRect(receiver.picture(), painter, {QPointF(), receiver.extent().size()}, {},
                        QPainter::CompositionMode_Source);
    return image;
}

QImage KTAdditions::toNSImage(const CIImage &receiver)
{
    return toNSImageFromRect(receiver, receiver.extent());
}
