#include "GalleryPage.h"

#include "DrawingSamples.h"
#include "GallerySample.h"
#include "ViewSamples.h"

#include <KTUtility/NSFont>
#include <KTUtility/NSImage>

namespace {
constexpr int Columns = 3;
constexpr int Margin = 24;
constexpr int TitleHeight = 28;

struct Sample
{
    const char16_t *name;
    const char16_t *title;
    QImage (*draw)();
};

constexpr Sample Samples[] = {
    {u"hud", u"Status display", drawStatusDisplay},
    {u"hud-large", u"Status display, large", drawLargeStatusDisplay},
    {u"badges", u"Badges of 1 to 6 characters", drawBadges},
    {u"rounded-rectangles", u"Rounded rectangles", drawRoundedRectangles},
    {u"gradients", u"Gradients of one colour and of two", drawGradients},
    {u"pictures", u"Flipped, turned, badged", drawPictures},
    {u"focus-ring-view", u"Focus anywhere in a form", drawFocusRingView},
    {u"focus-ring-scroll-view", u"Focus anywhere in a scroll view", drawFocusRingScrollView},
    {u"slider", u"Slider with a picture for its knob", drawSlider},
};

QRect cellAt(qsizetype index)
{
    const int column = int(index % Columns);
    const int row = int(index / Columns);
    return {QPoint(Margin + column * (GallerySize.width() + Margin),
                   Margin + row * (GallerySize.height() + TitleHeight + Margin)),
            GallerySize + QSize(0, TitleHeight)};
}

QSize pageSize(qsizetype count)
{
    const int rows = int((count + Columns - 1) / Columns);
    return {Margin + Columns * (GallerySize.width() + Margin),
            Margin + rows * (GallerySize.height() + TitleHeight + Margin)};
}

void drawCell(QPainter &painter, const QRect &cell, const GalleryPicture &picture)
{
    painter.drawImage(cell.topLeft(), picture.image);
    painter.setPen(QColor(60, 64, 72));
    painter.drawText(cell, int(Qt::AlignHCenter | Qt::AlignBottom), picture.title);
}
} // namespace

QList<GalleryPicture> Gallery::pictures()
{
    QList<GalleryPicture> pictures;
    for (const Sample &sample : Samples)
        pictures +=
            {QString::fromUtf16(sample.name), QString::fromUtf16(sample.title), sample.draw()};
    return pictures;
}

QImage Gallery::pageOf(const QList<GalleryPicture> &pictures)
{
    QImage page = NSImage::imageOfSize(pageSize(pictures.size()), galleryScale());
    page.fill(Qt::white);
    QPainter painter(&page);
    painter.setFont(NSFont::systemFontOfSize(15));
    for (qsizetype index = 0; index < pictures.size(); ++index)
        drawCell(painter, cellAt(index), pictures.at(index));
    return page;
}
