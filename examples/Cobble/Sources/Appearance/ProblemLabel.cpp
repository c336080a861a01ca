#include "ProblemLabel.h"

#include <KTUtility/NSClassRegistry>

#include <QEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>

#include <algorithm>
#include <cmath>

KT_REGISTER_CLASS(ProblemLabel)

namespace {
/// Of white before black, and of red.
constexpr int Hue = 6;
constexpr int Saturation = 170;
/// Between the sign and the text.
constexpr int Gap = 4;
/// How red the ground of an input becomes.
constexpr double Tint = 0.15;

QColor mixed(const QColor &ground, const QColor &tint)
{
    const auto part = [](float one, float other) { return float(one * (1 - Tint) + other * Tint); };
    return QColor::fromRgbF(part(ground.redF(), tint.redF()), part(ground.greenF(), tint.greenF()),
                            part(ground.blueF(), tint.blueF()));
}

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
    leaveSpaceForSign();
    updateColor();
}

void ProblemLabel::mark(QWidget *input, bool isWrong)
{
    input->setPalette(QPalette());
    if (!isWrong)
        return;
    QPalette colors = input->palette();
    const QColor ground = colors.color(QPalette::Base);
    colors.setColor(QPalette::Base, mixed(ground, colorOn(ground)));
    input->setPalette(colors);
}

int ProblemLabel::signSize() const
{
    return style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
}

void ProblemLabel::leaveSpaceForSign()
{
    const int around = _isFramed ? Gap : 0;
    const int space = signSize() + Gap + around;
    const bool isMirrored = isRightToLeft();
    setContentsMargins(isMirrored ? around : space, around, isMirrored ? space : around, around);
}

/// The frame of a label would leave the sign out, as its margins do.
void ProblemLabel::setFramed(bool isFramed)
{
    _isFramed = isFramed;
    leaveSpaceForSign();
    update();
}

void ProblemLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (text().isEmpty())
        return;
    const int size = signSize();
    const QRect place(_isFramed ? Gap : 0, (height() - size) / 2, size, size);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    if (_isFramed)
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    style()
        ->standardIcon(QStyle::SP_MessageBoxWarning, nullptr, this)
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), place));
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
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::StyleChange)
        leaveSpaceForSign();
}
