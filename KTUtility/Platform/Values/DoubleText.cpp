#include "DoubleText_p.h"

#include <array>
#include <charconv>

QString KTPrivate::textOfDouble(double number, int digits)
{
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), number, std::chars_format::general, digits).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}
