#include "NSGraphicsContext.h"

void NSGraphicsContext::turnUpright(QPainter &painter, qreal height)
{
    painter.translate(0, height);
    painter.scale(1, -1);
}
