#include "KTStatusHUDView.h"

#include "KTStatusHUDShape_p.h"
#include <KTUtility/Platform/AppKit/NSBezierPath.h>
#include <KTUtility/Platform/AppKit/NSImage.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>
#include <KTUtility/Platform/Diagnostics/ExceptionGuard_p.h>
#include <KTUtility/Platform/Keys/Invoker.h>

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

using namespace KTPrivate;

namespace {
constexpr const char *ClickSelector = "userClickedHUDOnEvent:";
} // namespace

KTStatusHUDView::KTStatusHUDView(QWidget *parent) : QWidget(parent) {}

void KTStatusHUDView::setBackgroundColor(const QColor &color)
{
    _bgColor = color;
    update();
}

void KTStatusHUDView::drawRect(QPainter &painter, const QRectF &rect) const
{
    if (!_bgColor.isValid())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(bezierPathWithRoundRectInRect(rect, KTStatusHUDCornerRadius), _bgColor);
}

QPainterPath KTStatusHUDView::bezierPathWithRoundRectInRect(const QRectF &rect, float radius)
{
    if (!NSImage::isFinite(rect))
        return {};
    const qreal round = std::isfinite(radius) && radius > 0 ? qreal(radius) : 0;
    const QPointF origin = rect.topLeft();
    const QPointF besideX(rect.x() + rect.width(), rect.y());
    const QPointF opposite(rect.x() + rect.width(), rect.y() + rect.height());
    const QPointF besideY(rect.x(), rect.y() + rect.height());
    QPainterPath path;
    path.moveTo(origin.x() + round, origin.y());
    NSBezierPath::appendArcFromPoint(path, besideX, opposite, round);
    NSBezierPath::appendArcFromPoint(path, opposite, besideY, round);
    NSBezierPath::appendArcFromPoint(path, besideY, origin, round);
    NSBezierPath::appendArcFromPoint(path, origin, besideX, round);
    path.closeSubpath();
    return path;
}

void KTStatusHUDView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Always the whole panel: only a part of it would have round corners of its own.
    drawRect(painter, QRectF(rect()));
}

void KTStatusHUDView::mousePressEvent(QMouseEvent *event)
{
    QWidget::mousePressEvent(event);
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    guarded(u"the delegate of the status display", [&] {
        if (!_delegate || !Invoker::respondsTo(KeyValueTarget::of(_delegate), ClickSelector))
            return;
        Invoker click(ClickSelector, {QVariant::fromValue(event)});
        click.perform(KeyValueTarget::of(_delegate));
    });
}

KT_REGISTER_CLASS(KTStatusHUDView)
