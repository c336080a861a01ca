#include "KTMediaFieldSlider.h"

#include "KTMediaFieldSliderCell.h"
#include <KTUtility/Platform/AppKit/NSImage.h>
#include <KTUtility/Platform/Classes/NSClassRegistry.h>

#include <QPainter>

namespace {
/// Gives a slider the settings of one that was just made.
void resetSettings(QSlider &slider)
{
    const QSlider fresh(slider.orientation());
    slider.setRange(fresh.minimum(), fresh.maximum());
    slider.setValue(fresh.value());
    slider.setSingleStep(fresh.singleStep());
    slider.setPageStep(fresh.pageStep());
    slider.setTickPosition(fresh.tickPosition());
    slider.setTickInterval(fresh.tickInterval());
    slider.setTracking(fresh.hasTracking());
    slider.setInvertedAppearance(fresh.invertedAppearance());
    slider.setInvertedControls(fresh.invertedControls());
}

/// The picture stands a point above the lower edge of the knob, which lies in the middle of the
/// slider's height: above the middle there has to be as much room as the picture rises over it.
QSize withRoomForPicture(const QSize &size, const NSSliderCell *cell, bool isHorizontal)
{
    const auto *const pictured = dynamic_cast<const KTMediaFieldSliderCell *>(cell);
    if (!pictured)
        return size;
    const QSizeF picture = NSImage::sizeOf(pictured->knobImage());
    const qreal knobHeight = isHorizontal ? cell->knobRect().height() : picture.height();
    const qreal height = qMax(picture.height() + 4, 2 * (picture.height() + 1) - knobHeight);
    return size.expandedTo(QSizeF(picture.width() + 2, height).toSize());
}

constexpr qreal DisabledOpacity = 0.4;
constexpr qreal FocusFrameWidth = 1.5;
constexpr qreal FocusFrameRadius = 3;

/// Around the picture, which has no state of its own.
void drawFocusFrame(QPainter &painter, const KTMediaFieldSliderCell &cell, const QColor &color)
{
    const QSizeF size = NSImage::sizeOf(cell.knobImage());
    const QPointF corner = cell.knobOrigin(cell.knobRect()) - QPointF(0, size.height());
    const qreal inset = FocusFrameWidth / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, FocusFrameWidth));
    painter.drawRoundedRect(QRectF(corner, size).adjusted(inset, inset, -inset, -inset),
                            FocusFrameRadius, FocusFrameRadius);
}
} // namespace

KTMediaFieldSlider::KTMediaFieldSlider(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    setCell(std::make_unique<KTMediaFieldSliderCell>());
}

KTMediaFieldSlider::~KTMediaFieldSlider() = default;

void KTMediaFieldSlider::setCell(std::unique_ptr<NSSliderCell> cell)
{
    _cell = std::move(cell);
    if (_cell)
        _cell->setControlView(this);
    resetSettings(*this);
    updateGeometry();
    update();
}

void KTMediaFieldSlider::awakeFromNib()
{
    setCell(std::make_unique<KTMediaFieldSliderCell>());
}

QSize KTMediaFieldSlider::sizeHint() const
{
    return withRoomForPicture(QSlider::sizeHint(), _cell.get(), orientation() == Qt::Horizontal);
}

QSize KTMediaFieldSlider::minimumSizeHint() const
{
    return withRoomForPicture(QSlider::minimumSizeHint(), _cell.get(),
                              orientation() == Qt::Horizontal);
}

void KTMediaFieldSlider::paintEvent(QPaintEvent *event)
{
    if (!_cell) {
        QSlider::paintEvent(event);
        return;
    }
    QPainter painter(this);
    const auto *const pictured = dynamic_cast<const KTMediaFieldSliderCell *>(_cell.get());
    if (pictured && !isEnabled())
        painter.setOpacity(DisabledOpacity);
    _cell->drawInterior(painter);
    if (pictured && hasFocus())
        drawFocusFrame(painter, *pictured, palette().color(QPalette::Highlight));
}

KT_REGISTER_CLASS(KTMediaFieldSlider)
