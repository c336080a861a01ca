#include "ProblemLabel.h"

#include <KTUtility/NSClassRegistry>

#include <QEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>

KT_REGISTER_CLASS(ProblemLabel)

namespace {
/// Of white before black, and of red.
constexpr int Hue = 6;
constexpr int Saturation = 170;

double linear(double component)
{
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

/// Reds from the one that looks most like a warning to those that are nearly white or black.
QList<int> lightnesses(bool isDark)
{
    QList<int> all;
    for (int lightness = 118; lightness > 20 && lightness < 240; lightness += isDark ? 4 : -4)
        all += lightness;
    return all;
}
} // namespace

ProblemLabel::ProblemLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    updateColor();
}

double ProblemLabel::contrast(const QColor &one, const QColor &other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

QColor ProblemLabel::colorOn(const QColor &background)
{
    const bool isDark = contrast(background, Qt::white) > contrast(background, Qt::black);
    for (const int lightness : lightnesses(isDark)) {
        const QColor red = QColor::fromHsl(Hue, Saturation, lightness);
        if (contrast(red, background) >= LeastContrast)
            return red;
    }
    return isDark ? Qt::white : Qt::black;
}

void ProblemLabel::updateColor()
{
    const QScopedValueRollback<bool> updating(_isUpdating, true);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, colorOn(colors.color(QPalette::Window)));
    setPalette(colors);
}

void ProblemLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !_isUpdating)
        updateColor();
}
