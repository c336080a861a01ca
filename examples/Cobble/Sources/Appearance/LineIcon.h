#pragma once

#include <QIconEngine>
#include <QPainterPath>

/// Draws an icon of lines in the colour that texts have, so that it is seen in light and dark
/// palettes, at any size.
///
/// \code
/// const QIcon cross(new LineIcon(u"M 4 4 L 12 12 M 12 4 L 4 12"_s));
/// \endcode
class LineIcon : public QIconEngine
{
public:
    /// How long the sides of what is drawn are.
    static constexpr qreal Side = 16;

    /// \param drawing "M x y" goes to a point, "L x y" draws a line to one, with spaces between.
    explicit LineIcon(const QString &drawing);

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine *clone() const override { return new LineIcon(*this); }

private:
    QPainterPath _lines;
};
