#include "NSColor_KTAdditions.h"

#include <KTUtility/Platform/Values/NSStringValues.h>

#include <QLocale>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace {
/// A number from 0 to 1.
float component(const QStringList &numbers, qsizetype index)
{
    const double number = NSString::doubleValue(numbers.value(index));
    return std::isfinite(number) ? float(std::clamp(number, 0.0, 1.0)) : 0.0F;
}

/// The shortest decimal number that a color takes for this component: it keeps 16 bits.
QString shortest(float number)
{
    constexpr float Most = 65535;
    for (int places = 0; places < 6; ++places) {
        const double rounded = QString::number(double(number), 'f', places).toDouble();
        if (qRound(float(rounded) * Most) == qRound(number * Most))
            return QString::number(rounded, 'f', QLocale::FloatingPointShortest);
    }
    return QString::number(double(number), 'f', QLocale::FloatingPointShortest);
}
} // namespace

QColor KTAdditions::ktColorWithString(const QString &string)
{
    const QStringList numbers = string.simplified().split(u' ');
    const float alpha = numbers.size() > 3 ? component(numbers, 3) : 1.0F;
    return QColor::fromRgbF(component(numbers, 0), component(numbers, 1), component(numbers, 2),
                            alpha);
}

QString KTAdditions::ktStringRepresentation(const QColor &receiver)
{
    const QColor color = receiver.isValid() ? receiver.toRgb() : QColor(0, 0, 0, 0);
    return QStringList{shortest(color.redF()), shortest(color.greenF()), shortest(color.blueF()),
                       shortest(color.alphaF())}
        .join(u' ');
}
