#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QColor>
#include <QPainterPath>
#include <QPointer>
#include <QWidget>

/// The panel of the status display: a rounded rectangle in one colour, which notifies its delegate
/// of clicks.
///
/// \code
/// KTStatusHUDView panel;
/// panel.setBackgroundColor(QColor(0, 0, 0, 153));
/// panel.setDelegate(controller);    // has Q_INVOKABLE void userClickedHUDOnEvent(QMouseEvent *)
/// \endcode
class KTUTILITY_EXPORT KTStatusHUDView : public QWidget
{
    Q_OBJECT

public:
    /// A panel without colour and delegate.
    explicit KTStatusHUDView(QWidget *parent = nullptr);

    /// The colour of the panel; none is drawn unless set.
    QColor backgroundColor() const { return _bgColor; }
    void setBackgroundColor(const QColor &color);

    /// Who is notified of clicks, by the invokable method `userClickedHUDOnEvent(QMouseEvent *)` if
    /// it has that. It is not owned, and may be destroyed before.
    QObject *delegate() const { return _delegate; }
    Q_INVOKABLE void setDelegate(QObject *delegate) { _delegate = delegate; }

    /// Fills the rounded rectangle, with a radius of 8, that is built on a rectangle.
    virtual void drawRect(QPainter &painter, const QRectF &rect) const;

    /// A rectangle with round corners, made of arcs that touch its sides. Coordinates may have y in
    /// either direction.
    /// \param radius what is below 0 or not finite makes square corners; the caller takes care
    /// that it fits.
    /// \return the empty path for rectangles that are not finite.
    static QPainterPath bezierPathWithRoundRectInRect(const QRectF &rect, float radius);

protected:
    /// Draws the whole panel.
    void paintEvent(QPaintEvent *event) override;
    /// Notifies the delegate of the click.
    void mousePressEvent(QMouseEvent *event) override;

private:
    QColor _bgColor;
    QPointer<QObject> _delegate;
};
