#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QColor>
#include <QPainter>
#include <QPainterPath>

/// Rounded rectangles, and paths filled with a gradient from bottom to top.
///
/// Bottom is where y is smallest, as in the system's coordinates, in which y points up. A plain
/// QPainter has y downwards: there the gradient runs from top to bottom, unless it is turned with
/// NSGraphicsContext::turnUpright().
///
/// \code
/// QPainter painter(&image);
/// NSGraphicsContext::turnUpright(painter, image.height());
/// const QPainterPath pill = KTAdditions::bezierPathWithRoundedRect({4, 4, 92, 24}, 12);
/// KTAdditions::linearBlendWithColor(pill, painter, QColor(60, 110, 200));
/// \endcode
namespace KTAdditions {
/// A rectangle with round corners.
/// \param cornerRadius at most half of the smaller side is used; below 0 or not a number is 0.
/// \return the empty path for rectangles that are not finite.
KTUTILITY_EXPORT QPainterPath bezierPathWithRoundedRect(const QRectF &rect, qreal cornerRadius);

/// Fills a path with shades of one colour: lighter and greyer at the bottom, a little darker and
/// more saturated at the top.
KTUTILITY_EXPORT void linearBlendWithColor(const QPainterPath &receiver, QPainter &painter,
                                           const QColor &color);

/// Fills a path with a gradient along y, from one colour at its lowest to another at its highest
/// point. Red, green, blue and alpha change evenly, each by itself. An invalid colour is
/// transparent black.
KTUTILITY_EXPORT void linearBlendFromStartColor(const QPainterPath &receiver, QPainter &painter,
                                                const QColor &startColor, const QColor &toEndColor);

/// The two colours of linearBlendWithColor().
struct KTBlendColors
{
    /// The one at the bottom.
    QColor start;
    /// The one at the top.
    QColor end;
};
/// The colours that linearBlendWithColor() makes of one.
KTUTILITY_EXPORT KTBlendColors blendColorsOf(const QColor &color);
} // namespace KTAdditions
