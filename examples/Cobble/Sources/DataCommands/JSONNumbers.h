#pragma once

#include <QByteArray>
#include <QString>

// Numbers as a text in JSON has them. A parser makes a double of each that is no whole number of 64
// bits, which keeps about 17 digits and says nothing of the others.

namespace JSONNumbers {
/// The first number that has more digits than a double keeps; nil if there is none.
///
/// \code
/// JSONNumbers::firstInexact("[0.1, 0.1234567890123456789]");   // "0.1234567890123456789"
/// \endcode
QString firstInexact(const QByteArray &json);
} // namespace JSONNumbers
