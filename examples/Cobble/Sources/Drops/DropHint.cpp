#include "DropHint.h"

#include <QPainter>

namespace {
constexpr int HintFrameWidth = 4;
/// How much of the window is still seen.
constexpr int HintGroundOpacity = 225;
} // namespace

DropHint::DropHint(QWidget *window, const QString &text) : QLabel(text, window)
{
    setTextFormat(Qt::PlainText);
    setAlignment(Qt::AlignCenter);
    setWordWrap(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    hide();
}

void DropHint::setVisible(bool isVisible)
{
    setGeometry(parentWidget()->rect());
    QLabel::setVisible(isVisible);
    raise();
}

void DropHint::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    QColor ground = palette().color(QPalette::Window);
    ground.setAlpha(HintGroundOpacity);
    painter.fillRect(rect(), ground);
    painter.setPen(QPen(palette().color(QPalette::Highlight), HintFrameWidth));
    const int inset = HintFrameWidth / 2;
    painter.drawRect(rect().adjusted(inset, inset, -inset, -inset));
    painter.end();
    QLabel::paintEvent(event);
}
