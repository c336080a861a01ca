#include "NSNumberWriter_p.h"

#include <QVarLengthArray>

#include <algorithm>

/// One text in the making, on the stack.
class NSNumberWriter::Writing
{
public:
    Writing(const NSNumberWriter &writer, const NSNumberDigits &number)
        : _writer(writer), _number(number)
    {
    }

    QString run()
    {
        append(_number.isNegative ? _writer.negativePrefix : _writer.positivePrefix);
        writeInteger();
        writeFraction();
        append(_number.isNegative ? _writer.negativeSuffix : _writer.positiveSuffix);
        return QString(_text.constData(), _text.size());
    }

private:
    void append(const QString &text) { _text.append(text.constData(), text.size()); }

    /// The digit at a position counted from the first significant one.
    QChar digitAt(int position) const
    {
        const bool isInside = position >= 0 && position < _number.count;
        const int digit = isInside ? _number.digits[size_t(position)] - '0' : 0;
        return QChar(char16_t(_writer.zeroDigit + digit));
    }

    bool isGrouped(int integerDigits) const
    {
        return _writer.groupingSize > 0 &&
               integerDigits >= _writer.groupingSize + _writer.minimumGroupingDigits;
    }

    bool isGroupStart(int place) const
    {
        if (place == _writer.groupingSize)
            return true;
        return place > _writer.groupingSize &&
               (place - _writer.groupingSize) % _writer.secondaryGroupingSize == 0;
    }

    void writeInteger()
    {
        const int least = hasFraction() ? 0 : 1;
        const int count = std::max({_number.pointPosition, _writer.minimumIntegerDigits, least});
        const bool grouped = isGrouped(count);
        for (int place = count; place > 0; --place) {
            _text.append(digitAt(_number.pointPosition - place));
            if (grouped && isGroupStart(place - 1))
                append(_writer.groupingSeparator);
        }
    }

    int fractionDigits() const
    {
        return std::max(_number.count - _number.pointPosition, _writer.minimumFractionDigits);
    }

    bool hasFraction() const { return fractionDigits() > 0; }

    void writeFraction()
    {
        const int count = fractionDigits();
        if (count <= 0)
            return;
        append(_writer.decimalSeparator);
        for (int place = 0; place < count; ++place)
            _text.append(digitAt(_number.pointPosition + place));
    }

    const NSNumberWriter &_writer;
    const NSNumberDigits &_number;
    QVarLengthArray<QChar, 128> _text;
};

QString NSNumberWriter::write(NSNumberDigits number) const
{
    number.round(maximumFractionDigits, roundingMode);
    return Writing(*this, number).run();
}
