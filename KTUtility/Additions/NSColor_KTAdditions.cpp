#include "NSColor_KTAdditions.h"

#include <KTUtility/Platform/Values/NSStringValues.h>

#include <QStringList>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace {
/// A number from 0 to 1.
float component(const QStringList &numbers, qsizetype index)
{
    const double number = NSString::doubleValue(numbers.value(index));
    return std::isfinite(number) ? float(std::clamp(number, 0.0, 1.0)) : 0.0F;
}

QString shortest(float number)
{
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number,
                                   std::chars_format::fixed)
                         .ptr;
    return QString::fromLatin1(digits.data(), end - digits.data());
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
