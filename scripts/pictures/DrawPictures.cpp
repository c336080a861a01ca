// Draws the pictures that the framework ships: the pills of drag badges and the knob of the media
// slider, each for ordinary and for sharp screens.

#include <QDir>
#include <QImage>
#include <QImageWriter>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>
#include <functional>

using namespace Qt::StringLiterals;

namespace {
/// A picture by its size in points, and how it is drawn there.
struct Picture
{
    QString name;
    QString extension;
    QSize size;
    std::function<void(QPainter &, const QRectF &)> draw;
};

QLinearGradient verticalShades(const QRectF &over, const QColor &top, const QColor &bottom)
{
    QLinearGradient shades(over.topLeft(), over.bottomLeft());
    shades.setColorAt(0, top);
    shades.setColorAt(1, bottom);
    return shades;
}

void drawShadow(QPainter &painter, const QRectF &body, qreal radius)
{
    painter.setPen(Qt::NoPen);
    for (const qreal depth : {2.6, 1.8, 1.0}) {
        painter.setBrush(QColor(40, 10, 0, 38));
        painter.drawRoundedRect(body.translated(0, depth), radius, radius);
    }
}

/// A red-orange pill with a white rim; its shadow takes the lowest three points.
void drawPill(QPainter &painter, const QRectF &frame)
{
    const QRectF body = frame.adjusted(1, 0.5, -1, -3);
    const qreal radius = body.height() / 2;
    drawShadow(painter, body, radius);
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(body, radius, radius);
    const QRectF inside = body.adjusted(1.5, 1.5, -1.5, -1.5);
    painter.setBrush(verticalShades(inside, QColor(250, 112, 62), QColor(206, 48, 14)));
    painter.drawRoundedRect(inside, radius - 1.5, radius - 1.5);
}

void drawDashes(QPainter &painter, const QPointF &center)
{
    painter.setPen(QPen(QColor(70, 96, 132), 1, Qt::SolidLine, Qt::RoundCap));
    for (const qreal offset : {-2.0, 0.0, 2.0}) {
        painter.drawLine(center + QPointF(offset, -2), center + QPointF(offset, 2));
    }
}

/// A round knob of metal with three dashes to take hold of.
void drawKnob(QPainter &painter, const QRectF &frame)
{
    const QRectF body(frame.x() + 0.5, frame.y() + 0.5, frame.width() - 1, frame.width() - 1);
    drawShadow(painter, body.adjusted(0.5, 0.5, -0.5, -1.5), body.width() / 2);
    painter.setPen(QPen(QColor(96, 108, 124), 1));
    painter.setBrush(verticalShades(body, QColor(254, 254, 255), QColor(190, 200, 214)));
    painter.drawEllipse(body.adjusted(0.5, 0.5, -0.5, -0.5));
    drawDashes(painter, body.center());
}

QList<Picture> pictures()
{
    // As wide as the widest characters of 11 pixels need.
    const auto pill = [](const QString &name, int width) {
        return Picture{name, u"tif"_s, QSize(width, 22), drawPill};
    };
    return {pill(u"dragBadge1-2"_s, 30),
            pill(u"dragBadge3"_s, 40),
            pill(u"dragBadge4"_s, 50),
            pill(u"dragBadge5"_s, 61),
            {u"book_dash_sliderthumb"_s, u"png"_s, QSize(15, 16), drawKnob}};
}

QImage imageOf(const Picture &picture, int scale)
{
    QImage image(picture.size * scale, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    picture.draw(painter, QRectF(QPointF(), QSizeF(picture.size)));
    return image;
}

bool write(const Picture &picture, int scale, const QDir &folder)
{
    const QString suffix = scale > 1 ? u"@%1x"_s.arg(scale) : QString();
    const QString name = picture.name + suffix + u'.' + picture.extension;
    QImageWriter writer(folder.filePath(name));
    writer.setCompression(1);
    if (writer.write(imageOf(picture, scale)))
        return true;
    std::fprintf(stderr, "%s: %s\n", qPrintable(name), qPrintable(writer.errorString()));
    return false;
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: KTDrawPictures FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    bool isWritten = true;
    for (const Picture &picture : pictures()) {
        isWritten = write(picture, 1, folder) && isWritten;
        isWritten = write(picture, 2, folder) && isWritten;
    }
    return isWritten ? 0 : 1;
}
