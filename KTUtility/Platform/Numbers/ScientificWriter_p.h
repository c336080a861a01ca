#pragma once

#include "NumberDigits_p.h"

#include <QString>

namespace KTPrivate {
/// Writes numbers as powers of ten without ICU, all their digits behind a first one: "1.25E-7".
///
/// Its parts are taken from texts that ICU made, so that it writes what ICU writes (tests compare
/// them).
class ScientificWriter
{
public:
    QString write(const NumberDigits &number) const;

    QString positivePrefix;
    QString negativePrefix;
    QString suffix;
    QString decimalSeparator;
    QString exponentMark;         ///< what stands before an exponent: "E"
    QString negativeExponentMark; ///< and before one below zero: "E-"
    char16_t zeroDigit = u'0';
};
} // namespace KTPrivate
