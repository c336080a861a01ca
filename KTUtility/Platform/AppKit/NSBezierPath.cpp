#include "NSBezierPath.h"

#include <QLineF>
#include <QtMath>

#include <algorithm>
#include <cmath>
#include <initializer_list>

namespace {
bool areFinite(std::initializer_list<qreal> numbers)
{
    return std::all_of(numbers.begin(), numbers.end(),
                       [](qreal number) { return std::isfinite(number); });
}

/// How far an arc turns, counterclockwise; at most once around.
qreal sweepOf(qreal startAngle, qreal endAngle, bool clockwise)
{
    const qreal difference = endAngle - startAngle;
    if (std::abs(difference) >= 360 && (difference < 0) == clockwise)
        return clockwise ? -360 : 360;
    const qreal turn = std::fmod(difference, 360);
    if (clockwise)
        return turn > 0 ? turn - 360 : turn;
    return turn < 0 ? turn + 360 : turn;
}

QPointF unitVector(const QPointF &from, const QPointF &to)
{
    const QPointF vector = to - from;
    const qreal length = std::hypot(vector.x(), vector.y());
    return length > 0 ? vector / length : QPointF();
}

qreal directionOf(const QPointF &vector)
{
    return qRadiansToDegrees(std::atan2(vector.y(), vector.x()));
}

/// Adds the arc of a corner whose legs leave it in two directions that are at right or any other
/// angles, but not parallel.
void appendCorner(QPainterPath &path, const QPointF &corner, const QPointF &back,
                  const QPointF &ahead, qreal radius)
{
    const qreal cosine = QPointF::dotProduct(back, ahead);
    const qreal cross = back.x() * ahead.y() - back.y() * ahead.x();
    // Half of the angle between the legs says how far from the corner the arc touches them.
    const qreal distance = radius * (1 + cosine) / std::abs(cross);
    const QPointF start = corner + back * distance;
    const QPointF end = corner + ahead * distance;
    const bool clockwise = cross > 0;
    const QPointF toCenter =
        clockwise ? QPointF(-back.y(), back.x()) : QPointF(back.y(), -back.x());
    const QPointF center = start + toCenter * radius;
    NSBezierPath::appendArcWithCenter(path, center, radius, directionOf(start - center),
                                      directionOf(end - center), clockwise);
}
} // namespace

void NSBezierPath::appendArcWithCenter(QPainterPath &path, const QPointF &center, qreal radius,
                                       qreal startAngle, qreal endAngle, bool clockwise)
{
    if (!areFinite({center.x(), center.y(), radius, startAngle, endAngle}) || radius < 0)
        return;
    const QRectF circle(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    // In Qt angles grow counterclockwise where y points down.
    if (path.elementCount() == 0)
        path.arcMoveTo(circle, -startAngle);
    path.arcTo(circle, -startAngle, -sweepOf(startAngle, endAngle, clockwise));
}

void NSBezierPath::appendArcFromPoint(QPainterPath &path, const QPointF &fromPoint,
                                      const QPointF &toPoint, qreal radius)
{
    if (!areFinite({fromPoint.x(), fromPoint.y(), toPoint.x(), toPoint.y(), radius}))
        return;
    const QPointF back = unitVector(fromPoint, path.currentPosition());
    const QPointF ahead = unitVector(fromPoint, toPoint);
    const bool isCorner = std::abs(back.x() * ahead.y() - back.y() * ahead.x()) > 1e-9;
    if (isCorner && radius > 0)
        appendCorner(path, fromPoint, back, ahead, radius);
    else
        path.lineTo(fromPoint);
}
