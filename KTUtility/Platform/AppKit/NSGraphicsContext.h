#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QPainter>

/// The platform's drawing in terms of QPainter.
///
/// Its coordinates have their origin at the bottom left, with y upwards; those of QPainter have it
/// at the top left, with y downwards, as the platform's "flipped" views do. What draws in this
/// framework uses the coordinates that the painter has.
///
/// \code
/// QPainter painter(&image);
/// NSGraphicsContext::turnUpright(painter, image.height());
/// painter.fillRect(0, 0, 10, 10, Qt::red);    // the bottom left corner
/// \endcode
namespace NSGraphicsContext {
/// Gives a painter the platform's coordinates.
/// \param height that of what is drawn into, in points.
KTUTILITY_EXPORT void turnUpright(QPainter &painter, qreal height);
} // namespace NSGraphicsContext

/// Saves the state of a painter and restores it at the end of the scope.
class NSGraphicsState
{
public:
    /// Saves the painter's state; the end of this object's life restores it.
    explicit NSGraphicsState(QPainter &painter) : _painter(painter) { _painter.save(); }
    ~NSGraphicsState() { _painter.restore(); }
    NSGraphicsState(const NSGraphicsState &) = delete;
    NSGraphicsState &operator=(const NSGraphicsState &) = delete;

private:
    QPainter &_painter;
};
