#pragma once

// Private to the library. For descriptions and formats.

#include <QString>

namespace KTPrivate {
/// The digits that the description of a double has at most, and that of a float.
constexpr int DoubleDigits = 16;
constexpr int FloatDigits = 7;

/// A number as "%.16g" prints it, or with other digits, in every locale.
QString textOfDouble(double number, int digits);
} // namespace KTPrivate
