#include "NSBezierPath_KTAdditions.h"

#include <KTUtility/Platform/AppKit/NSBezierPath.h>
#include <KTUtility/Platform/AppKit/NSGraphicsContext.h>
#include <KTUtility/Platform/AppKit/NSImage.h>

#include <QLinearGradient>

#include <algorithm>
#include <cmath>

namespace {
/// At the bottom: less saturated and brighter.
constexpr float StartSaturation = -0.12F;
constexpr float StartBrightness = 0.3F;
/// At the top: more saturated, unless it is as good as grey, and darker.
constexpr float EndSaturation = 0.12F;
constexpr float GreySaturation = 0.04F;
constexpr float EndBrightness = -0.045F;

qreal radiusFitting(const QRectF &rect, qreal cornerRadius)
{
    const qreal wanted = cornerRadius > 0 ? cornerRadius : 0;
    return std::max(std::min(wanted, std::min(rect.width(), rect.height()) * 0.5), 0.0);
}

QPainterPath roundedRectAtOrigin(qreal width, qreal height, qreal radius)
{
    QPainterPath path;
    path.moveTo(0, radius);
    path.lineTo(0, height - radius);
    NSBezierPath::appendArcWithCenter(path, {radius, height - radius}, radius, 180, 90, true);
    path.lineTo(width - radius, height);
    NSBezierPath::appendArcWithCenter(path, {width - radius, height - radius}, radius, 90, 0, true);
    path.lineTo(width, radius);
    NSBezierPath::appendArcWithCenter(path, {width - radius, radius}, radius, 0, 270, true);
    path.lineTo(radius, 0);
    NSBezierPath::appendArcWithCenter(path, {radius, radius}, radius, 270, 180, true);
    path.closeSubpath();
    return path;
}

QColor componentsOf(const QColor &color)
{
    return color.isValid() ? color.toRgb() : QColor(0, 0, 0, 0);
}
} // namespace

QPainterPath KTAdditions::bezierPathWithRoundedRect(const QRectF &rect, qreal cornerRadius)
{
    if (!NSImage::isFinite(rect))
        return {};
    return roundedRectAtOrigin(rect.width(), rect.height(), radiusFitting(rect, cornerRadius))
        .translated(rect.topLeft());
}

KTAdditions::KTBlendColors KTAdditions::blendColorsOf(const QColor &color)
{
    float hue = 0, saturation = 0, brightness = 0, alpha = 0;
    componentsOf(color).getHsvF(&hue, &saturation, &brightness, &alpha);
    const float endSaturation =
        saturation > GreySaturation ? std::min(saturation + EndSaturation, 1.0F) : 0.0F;
    return {
        QColor::fromHsvF(hue, std::max(saturation + StartSaturation, 0.0F),
                         std::min(brightness + StartBrightness, 1.0F), alpha),
        QColor::fromHsvF(hue, endSaturation, std::max(brightness + EndBrightness, 0.0F), alpha)};
}

void KTAdditions::linearBlendWithColor(const QPainterPath &receiver, QPainter &painter,
                                       const QColor &color)
{
    const KTBlendColors colors = blendColorsOf(color);
    linearBlendFromStartColor(receiver, painter, colors.start, colors.end);
}

void KTAdditions::linearBlendFromStartColor(const QPainterPath &receiver, QPainter &painter,
                                            const QColor &startColor, const QColor &toEndColor)
{
    const QRectF bounds = receiver.boundingRect();
    if (bounds.isEmpty() || !painter.isActive())
        return;
    QLinearGradient shading(0, bounds.top(), 0, bounds.top() + bounds.height());
    // Qt's own way would weigh the colours with their alpha.
    shading.setInterpolationMode(QGradient::ComponentInterpolation);
    shading.setColorAt(0, componentsOf(startColor));
    shading.setColorAt(1, componentsOf(toEndColor));
    const NSGraphicsState state(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(receiver, shading);
}
