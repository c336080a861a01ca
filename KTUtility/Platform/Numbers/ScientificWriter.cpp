#include "ScientificWriter_p.h"

#include <charconv>
#include <cstdlib>

using namespace KTPrivate;

namespace {
/// Writes one text whose length is known.
class ScientificText
{
public:
    ScientificText(qsizetype size, char16_t zeroDigit)
        : _text(size, Qt::Uninitialized), _at(_text.data()), _zeroDigit(zeroDigit)
    {
    }

    void append(const QString &text)
    {
        for (const QChar unit : text) // mostly none or one
            *_at++ = unit;
    }
    void appendDigit(char digit) { *_at++ = QChar(char16_t(_zeroDigit + (digit - '0'))); }
    QString text() && { return std::move(_text); }

private:
    QString _text;
    QChar *_at;
    char16_t _zeroDigit;
};
} // namespace

QString ScientificWriter::write(const NumberDigits &number) const
{
    const int exponent = number.count > 0 ? number.pointPosition - 1 : 0;
    std::array<char, 16> power;
    const char *const powerEnd =
        std::to_chars(power.data(), power.data() + power.size(), std::abs(exponent)).ptr;
    const QString &prefix = number.isNegative ? negativePrefix : positivePrefix;
    const QString &mark = exponent < 0 ? negativeExponentMark : exponentMark;
    const bool hasFraction = number.count > 1;
    const qsizetype digits = number.count > 0 ? number.count : 1;
    ScientificText text(prefix.size() + digits + (hasFraction ? decimalSeparator.size() : 0) +
                            mark.size() + (powerEnd - power.data()) + suffix.size(),
                        zeroDigit);
    text.append(prefix);
    text.appendDigit(number.count > 0 ? number.digitAt(0) : '0');
    if (hasFraction)
        text.append(decimalSeparator);
    for (int index = 1; index < number.count; ++index)
        text.appendDigit(number.digitAt(index));
    text.append(mark);
    for (const char *digit = power.data(); digit != powerEnd; ++digit)
        text.appendDigit(*digit);
    text.append(suffix);
    return std::move(text).text();
}
