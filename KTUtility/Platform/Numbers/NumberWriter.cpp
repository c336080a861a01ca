#include "NumberWriter_p.h"

#include <algorithm>

using namespace KTPrivate;

/// One text in the making. Its length is known beforehand, so that every unit is written where it
/// stays: copying what was just written unit by unit would cost more than all the rest.
class NumberWriter::Writing
{
public:
    Writing(const NumberWriter &writer, const NumberDigits &number)
        : _writer(writer)
        , _number(number)
        , _integerDigits(integerDigits())
        , _fractionDigits(fractionDigits())
    {
    }

    QString run()
    {
        const QString &prefix =
            _number.isNegative ? _writer.negativePrefix : _writer.positivePrefix;
        const QString &suffix =
            _number.isNegative ? _writer.negativeSuffix : _writer.positiveSuffix;
        const qsizetype point = _fractionDigits > 0 ? _writer.decimalSeparator.size() : 0;
        QString text(prefix.size() + _integerDigits + groupCount() * groupSize() + point +
                         _fractionDigits + suffix.size(),
                     Qt::Uninitialized);
        _at = text.data();
        append(prefix);
        writeInteger();
        writeFraction();
        append(suffix);
        return text;
    }

private:
    int fractionDigits() const
    {
        return std::max({_number.count - _number.pointPosition, _writer.minimumFractionDigits, 0});
    }

    int integerDigits() const
    {
        const int least = fractionDigits() > 0 ? 0 : 1;
        return std::max({_number.pointPosition, _writer.minimumIntegerDigits, least});
    }

    void append(const QString &text)
    {
        for (const QChar unit : text) // mostly none or one
            *_at++ = unit;
    }

    /// The digit at a position counted from the first significant one.
    QChar digitAt(int position) const
    {
        const bool isInside = position >= 0 && position < _number.count;
        const int digit = isInside ? _number.digitAt(position) - '0' : 0;
        return QChar(char16_t(_writer.zeroDigit + digit));
    }

    bool isGrouped() const
    {
        return _writer.groupingSize > 0 &&
               _integerDigits >= _writer.groupingSize + _writer.minimumGroupingDigits;
    }

    qsizetype groupSize() const { return _writer.groupingSeparator.size(); }

    /// How many separators there are.
    int groupCount() const
    {
        if (!isGrouped())
            return 0;
        return 1 + (_integerDigits - _writer.groupingSize - 1) / _writer.secondaryGroupingSize;
    }

    void writeInteger()
    {
        int separators = groupCount();
        // The place of the next separator, counted from the point; divisions are slow.
        int next = _writer.groupingSize + (separators - 1) * _writer.secondaryGroupingSize;
        for (int place = _integerDigits; place > 0; --place) {
            *_at++ = digitAt(_number.pointPosition - place);
            if (separators > 0 && place - 1 == next) {
                append(_writer.groupingSeparator);
                next -= _writer.secondaryGroupingSize;
                --separators;
            }
        }
    }

    void writeFraction()
    {
        if (_fractionDigits == 0)
            return;
        append(_writer.decimalSeparator);
        for (int place = 0; place < _fractionDigits; ++place)
            *_at++ = digitAt(_number.pointPosition + place);
    }

    const NumberWriter &_writer;
    const NumberDigits &_number;
    const int _integerDigits;
    const int _fractionDigits;
    QChar *_at = nullptr;
};

QString NumberWriter::write(NumberDigits &number) const
{
    number.round(maximumFractionDigits, roundingMode);
    return Writing(*this, number).run();
}
