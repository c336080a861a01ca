#pragma once

#include <QImage>
#include <QPointF>
#include <QRectF>

/// A picture with a place in an endless plane: what image processing hands on.
///
/// \code
/// const CIImage photo(QImage(path));
/// photo.extent();    // (0, 0, width, height), in pixels
/// \endcode
class CIImage
{
public:
    /// Nil.
    CIImage() = default;
    /// \param origin where the bottom left corner of the picture lies, y upwards.
    explicit CIImage(const QImage &picture, const QPointF &origin = {})
        : _picture(picture), _origin(origin)
    {
    }

    /// Whether there is no picture.
    bool isNull() const { return _picture.isNull(); }
    /// The pixels, whose lower left one lies at the origin.
    const QImage &picture() const { return _picture; }
    /// The rectangle that the picture covers, in pixels; empty for nil.
    QRectF extent() const { return {_origin, QSizeF(_picture.size())}; }

private:
    QImage _picture;
    QPointF _origin;
};
