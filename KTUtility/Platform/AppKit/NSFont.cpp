#include "NSFont.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QRawFont>
#include <QtEndian>

namespace {
bool hasFonts()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance());
}

QFont inPixels(QFont font, int pixels)
{
    font.setPixelSize(pixels > 0 ? pixels : NSFont::systemFontSize);
    return font;
}

/// What a font file says of its bounding rectangle, in font units: the four 16-bit numbers at this
/// offset of its table "head".
constexpr qsizetype BoundingBoxOffset = 36;

QRectF boxFromHeader(const QByteArray &header, qreal scale)
{
    const auto number = [&](qsizetype index) {
        return scale * qFromBigEndian<qint16>(header.constData() + BoundingBoxOffset + 2 * index);
    };
    return {QPointF(number(0), number(1)), QPointF(number(2), number(3))};
}
} // namespace

QFont NSFont::systemFontOfSize(int pixels)
{
    return inPixels(hasFonts() ? QFontDatabase::systemFont(QFontDatabase::GeneralFont) : QFont(),
                    pixels);
}

QFont NSFont::userFontOfSize(int pixels)
{
    return inPixels(hasFonts() ? QGuiApplication::font() : QFont(), pixels);
}

QRectF NSFont::boundingRectForFont(const QFont &font)
{
    if (!hasFonts())
        return {};
    const QRawFont file = QRawFont::fromFont(font);
    const QByteArray header = file.fontTable("head");
    if (header.size() >= BoundingBoxOffset + 8 && file.unitsPerEm() > 0)
        return boxFromHeader(header, file.pixelSize() / file.unitsPerEm());
    // A font without such a table, such as one of bitmaps.
    const QFontMetricsF metrics(font);
    return {0, -metrics.descent(), metrics.maxWidth(), metrics.ascent() + metrics.descent()};
}
