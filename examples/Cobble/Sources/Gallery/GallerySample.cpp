#include "GallerySample.h"

#include <KTUtility/NSFont>
#include <KTUtility/NSImage>

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace {
constexpr int RowHeight = 24;
constexpr QSize PhotoSize(80, 60);

const QStringList &sampleNames()
{
    static const QStringList names = {u"Ada Berger"_s,     u"Ben Carver"_s,     u"Cleo Dahl"_s,
                                      u"Dario Esposito"_s, u"Edith Fournier"_s, u"Finn Gardner"_s,
                                      u"Grete Holm"_s,     u"Hugo Ivanov"_s,    u"Iris Jansen"_s,
                                      u"Jonas Keller"_s};
    return names;
}

void drawRow(QPainter &painter, int row)
{
    const QRect line(0, row * RowHeight, GallerySize.width(), RowHeight);
    painter.fillRect(line, row % 2 == 0 ? QColor(255, 255, 255) : QColor(240, 244, 250));
    painter.setPen(QColor(70, 74, 82));
    painter.drawText(line.adjusted(14, 0, 0, 0), Qt::AlignVCenter, sampleNames().value(row));
    painter.drawText(line.adjusted(0, 0, -14, 0), int(Qt::AlignVCenter | Qt::AlignRight),
                     u"+1 555 01%1"_s.arg(row * 7 + 10));
}

void drawHills(QPainter &painter)
{
    QPainterPath hills(QPointF(0, PhotoSize.height()));
    hills.lineTo(0, 38);
    hills.cubicTo(20, 20, 33, 52, 50, 37);
    hills.cubicTo(62, 27, 70, 33, PhotoSize.width(), 25);
    hills.lineTo(PhotoSize.width(), PhotoSize.height());
    painter.fillPath(hills, QColor(78, 140, 86));
}
} // namespace

qreal galleryScale()
{
    return qGuiApp->devicePixelRatio();
}

QImage gallerySample(const std::function<void(QPainter &)> &draw)
{
    QImage image = NSImage::imageOfSize(GallerySize, galleryScale());
    image.fill(QColor(236, 238, 242));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(NSFont::systemFontOfSize(NSFont::systemFontSize));
    draw(painter);
    return image;
}

void drawSampleTable(QPainter &painter)
{
    for (int row = 0; row * RowHeight < GallerySize.height(); ++row)
        drawRow(painter, row);
}

QImage samplePhoto()
{
    QImage photo = NSImage::imageOfSize(PhotoSize, galleryScale());
    QPainter painter(&photo);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(QRect(QPoint(), PhotoSize), QColor(150, 200, 240));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 212, 80));
    painter.drawEllipse(QPointF(60, 13), 9, 9);
    drawHills(painter);
    painter.setPen(Qt::white);
    painter.setFont(NSFont::systemFontOfSize(20));
    painter.drawText(QPointF(8, 55), u"R"_s);
    return photo;
}
