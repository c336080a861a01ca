// Draws the icon of Cobble, a paving of cobblestones on a card: as an SVG, and as PNG in the sizes
// that desktops look for.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QTextStream>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {
constexpr int Side = 64;

/// A rounded rectangle shaded from top to bottom. Icon and SVG are made of nothing else, so that
/// both show the same.
struct Stone
{
    QRectF frame;
    qreal radius;
    QColor top;
    QColor bottom;
};

QList<Stone> paving()
{
    const QColor light(216, 222, 230);
    const QColor grey(150, 162, 178);
    const QColor dark(112, 126, 146);
    const QColor red(250, 134, 84);
    const QColor brown(206, 72, 30);
    return {
        {{3, 3, 58, 58}, 12, QColor(62, 78, 102), QColor(34, 44, 62)},
        {{8, 8, 22, 14}, 5.5, light, grey},
        {{33, 8, 23, 14}, 5.5, grey, dark},
        {{8, 25, 13, 14}, 5.5, grey, dark},
        {{24, 25, 19, 14}, 5.5, red, brown},
        {{46, 25, 10, 14}, 4.5, light, grey},
        {{8, 42, 20, 14}, 5.5, light, grey},
        {{31, 42, 25, 14}, 5.5, grey, dark},
    };
}

void drawStone(QPainter &painter, const Stone &stone)
{
    QLinearGradient shades(stone.frame.topLeft(), stone.frame.bottomLeft());
    shades.setColorAt(0, stone.top);
    shades.setColorAt(1, stone.bottom);
    painter.setBrush(shades);
    painter.drawRoundedRect(stone.frame, stone.radius, stone.radius);
}

bool writePicture(int pixels, const QDir &folder)
{
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(qreal(pixels) / Side, qreal(pixels) / Side);
    painter.setPen(Qt::NoPen);
    for (const Stone &stone : paving())
        drawStone(painter, stone);
    painter.end();
    return image.save(folder.filePath(u"%1.png"_s.arg(pixels)));
}

QString gradientOf(const Stone &stone, int number)
{
    return u"    <linearGradient id=\"s%1\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\">\n"
           "      <stop offset=\"0\" stop-color=\"%2\"/>\n"
           "      <stop offset=\"1\" stop-color=\"%3\"/>\n"
           "    </linearGradient>\n"_s.arg(number)
               .arg(stone.top.name(), stone.bottom.name());
}

QString rectangleOf(const Stone &stone, int number)
{
    return u"  <rect x=\"%1\" y=\"%2\" width=\"%3\" height=\"%4\" rx=\"%5\" fill=\"url(#s%6)\"/>\n"_s
        .arg(stone.frame.x())
        .arg(stone.frame.y())
        .arg(stone.frame.width())
        .arg(stone.frame.height())
        .arg(stone.radius)
        .arg(number);
}

QString scalable()
{
    QString gradients;
    QString rectangles;
    int number = 0;
    for (const Stone &stone : paving()) {
        gradients += gradientOf(stone, ++number);
        rectangles += rectangleOf(stone, number);
    }
    return u"<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%1\" height=\"%1\" "
           "viewBox=\"0 0 %1 %1\">\n  <title>Cobble</title>\n  <defs>\n"_s.arg(Side) +
           gradients + u"  </defs>\n" + rectangles + u"</svg>\n";
}

bool writeScalable(const QDir &folder)
{
    QFile file(folder.filePath(u"scalable.svg"_s));
    const QByteArray svg = scalable().toUtf8();
    return file.open(QIODevice::WriteOnly) && file.write(svg) == svg.size() && file.flush();
}
} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "Usage: KTDrawIcon FOLDER\n");
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    bool isWritten = writeScalable(folder);
    for (const int pixels : {16, 22, 24, 32, 48, 64, 128, 256, 512})
        isWritten = writePicture(pixels, folder) && isWritten;
    return isWritten ? 0 : 1;
}
