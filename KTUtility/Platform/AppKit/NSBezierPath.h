#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QPainterPath>

/// Arcs of paths as the platform names them. Angles are in degrees, counted counterclockwise from
/// the x axis where y points up.
///
/// \code
/// QPainterPath quarter;
/// quarter.moveTo(0, 0);
/// NSBezierPath::appendArcWithCenter(quarter, {0, 0}, 10, 90, 0, true);    // a slice of a cake
/// quarter.closeSubpath();
/// \endcode
namespace NSBezierPath {
/// Adds a line to the start of an arc, and the arc. What is not finite or has a radius below 0 adds
/// nothing.
KTUTILITY_EXPORT void appendArcWithCenter(QPainterPath &path, const QPointF &center, qreal radius,
                                          qreal startAngle, qreal endAngle, bool clockwise);

/// Rounds a corner: adds the arc that touches the line from the current point to \a fromPoint and
/// the line from there to \a toPoint, and a line to its start. Where there is no corner to round,
/// it is a line to \a fromPoint.
KTUTILITY_EXPORT void appendArcFromPoint(QPainterPath &path, const QPointF &fromPoint,
                                         const QPointF &toPoint, qreal radius);
} // namespace NSBezierPath
