#include "KTFocusRing_p.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QSplitter>

#include <array>

using namespace Qt::StringLiterals;

namespace {
/// How far it reaches beyond the view, in points.
constexpr int RingWidth = 3;
constexpr qreal RingRadius = 3;

/// Draws nothing but the ring, and lets the mouse through.
class Overlay : public QWidget
{
public:
    explicit Overlay(QWidget *parent) : QWidget(parent)
    {
        setObjectName(u"KTFocusRing"_s);
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setFocusPolicy(Qt::NoFocus);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // Fainter from the inside to the outside.
        constexpr std::array<qreal, RingWidth> Strengths = {0.3, 0.6, 0.85};
        for (int line = 0; line < RingWidth; ++line)
            drawLine(painter, line + 0.5, Strengths.at(size_t(line)));
    }

    void resizeEvent(QResizeEvent *) override
    {
        const QRect inside = rect().adjusted(RingWidth, RingWidth, -RingWidth, -RingWidth);
        setMask(QRegion(rect()).subtracted(QRegion(inside)));
    }

private:
    void drawLine(QPainter &painter, qreal inset, qreal strength)
    {
        QColor color = palette().color(QPalette::Highlight);
        color.setAlphaF(float(strength));
        painter.setPen(QPen(color, 1));
        painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), RingRadius,
                                RingRadius);
    }
};

bool isViewport(const QWidget *widget)
{
    const auto *const area = qobject_cast<QAbstractScrollArea *>(widget->parentWidget());
    return area && area->viewport() == widget;
}
} // namespace

KTFocusRing::KTFocusRing(QWidget *view, std::function<void()> changed)
    : _view(view), _changed(std::move(changed))
{
    connect(qApp, &QApplication::focusChanged, this, [this] { _changed(); });
    follow();
}

KTFocusRing::~KTFocusRing()
{
    delete _overlay;
}

QWidget *KTFocusRing::firstResponder() const
{
    return _view->window()->focusWidget();
}

bool KTFocusRing::shouldDraw() const
{
    const QWidget *const responder = firstResponder();
    // Some styles call tool windows active together with their parent.
    return QApplication::activeWindow() == _view->window() && responder &&
           (responder == _view || _view->isAncestorOf(responder));
}

QRect KTFocusRing::rectAround(const QRect &bounds)
{
    return bounds.adjusted(-RingWidth, -RingWidth, RingWidth, RingWidth);
}

/// The widget that the ring is drawn in: the nearest that scrolls the view, else the window, so
/// that nothing between them cuts it. A splitter would make a pane of it.
QWidget *KTFocusRing::canvas() const
{
    QWidget *widget = _view;
    while (!widget->isWindow() && !(widget != _view && isViewport(widget))) {
        QWidget *const parent = widget->parentWidget();
        if (parent->isWindow() && qobject_cast<QSplitter *>(parent))
            break;
        widget = parent;
    }
    return widget;
}

/// Listens to the view and its ancestors: when they move, so does the ring.
void KTFocusRing::follow()
{
    for (const QPointer<QWidget> &widget : std::as_const(_followed)) {
        if (widget)
            widget->removeEventFilter(this);
    }
    _followed.clear();
    for (QWidget *widget = _view; widget;
         widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        widget->installEventFilter(this);
        _followed += widget;
    }
}

bool KTFocusRing::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        follow();
        _changed();
        place();
        break;
    case QEvent::WindowActivate:
    case QEvent::WindowDeactivate:
        _changed();
        break;
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::ZOrderChange:
        place();
        break;
    default:
        break;
    }
    return false;
}

/// Lays the overlay around the view, if there is one.
void KTFocusRing::place()
{
    if (!_overlay)
        return;
    QWidget *const in = canvas();
    if (_overlay->parentWidget() != in)
        _overlay->setParent(in);
    const QPoint origin = in == _view ? QPoint() : _view->mapTo(in, QPoint());
    const QRect frame(origin, _view->size());
    // A view that is a window has no room around it.
    _overlay->setGeometry(in == _view ? frame : rectAround(frame));
    _overlay->setVisible(_view->isVisibleTo(in));
    _overlay->raise();
}

void KTFocusRing::display()
{
    if (!shouldDraw()) {
        delete _overlay;
        return;
    }
    if (!_overlay)
        _overlay = new Overlay(canvas());
    place();
    _overlay->update();
}
