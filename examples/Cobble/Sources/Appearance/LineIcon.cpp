#include "LineIcon.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QStringList>

namespace {
constexpr qreal PenWidth = 1.3;

QColor colorFor(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::WindowText);
    case QIcon::Selected:
        return palette.color(QPalette::HighlightedText);
    default:
        return palette.color(QPalette::WindowText);
    }
}
} // namespace

LineIcon::LineIcon(const QString &drawing)
{
    const QStringList words = drawing.split(u' ', Qt::SkipEmptyParts);
    for (qsizetype word = 0; word + 2 < words.size(); word += 3) {
        const QPointF point(words.at(word + 1).toDouble(), words.at(word + 2).toDouble());
        if (words.at(word) == u'M')
            _lines.moveTo(point);
        else
            _lines.lineTo(point);
    }
}

void LineIcon::paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / Side, rect.height() / Side);
    painter->setPen(QPen(colorFor(mode), PenWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter->drawPath(_lines);
    painter->restore();
}

QPixmap LineIcon::pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
}
