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
        , _fractionDigits(fractionDigits())
        , _integerDigits(integerDigits())
        , _groupCount(groupCount())
    {
    }

    QString run()
    {
        const QString &prefix =
            _number.isNegative ? _writer.negativePrefix : _writer.positivePrefix;
        const QString &suffix =
            _number.isNegative ? _writer.negativeSuffix : _writer.positiveSuffix;
        const qsizetype point = _fractionDigits > 0 ? _writer.decimalSeparator.size() : 0;
        QString text(prefix.size() + _integerDigits + _groupCount * groupSize() + point +
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
        const int least = _fractionDigits > 0 ? 0 : 1;
        return std::max({_number.pointPosition, _writer.minimumIntegerDigits, least});
    }

    void append(const QString &text)
    {
        for (const QChar unit : text) // mostly none or one
            *_at++ = unit;
    }

    /// Digits from a position on, counted from the first significant one; zeros around those.
    void appendDigits(int position, int count)
    {
        if (position >= 0 && position + count <= _number.count)
            appendSignificant(position, count);
        else
            appendPadded(position, count);
    }

    void appendSignificant(int position, int count)
    {
        const char *digit = &_number.buffer[size_t(_number.first) + size_t(position)];
        const char *const end = digit + count;
        const auto offset = char16_t(_writer.zeroDigit - u'0');
        QChar *at = _at;
        while (digit != end)
            *at++ = QChar(char16_t(offset + *digit++));
        _at = at;
    }

    void appendPadded(int position, int count)
    {
        const int before = std::clamp(-position, 0, count);
        const int inside = std::clamp(_number.count - (position + before), 0, count - before);
        appendZeros(before);
        if (inside > 0)
            appendSignificant(position + before, inside);
        appendZeros(count - before - inside);
    }

    void appendZeros(int count)
    {
        for (; count > 0; --count)
            *_at++ = QChar(_writer.zeroDigit);
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
        // Places are counted from the point.
        int place = _integerDigits;
        int next = _writer.groupingSize + (_groupCount - 1) * _writer.secondaryGroupingSize;
        for (int separator = 0; separator < _groupCount; ++separator) {
            appendDigits(_number.pointPosition - place, place - next);
            append(_writer.groupingSeparator);
            place = next;
            next -= _writer.secondaryGroupingSize;
        }
        appendDigits(_number.pointPosition - place, place);
    }

    void writeFraction()
    {
        if (_fractionDigits == 0)
            return;
        append(_writer.decimalSeparator);
        appendDigits(_number.pointPosition, _fractionDigits);
    }

    const NumberWriter &_writer;
    const NumberDigits &_number;
    const int _fractionDigits;
    const int _integerDigits;
    const int _groupCount;
    QChar *_at = nullptr;
};

QString NumberWriter::write(NumberDigits &number) const
{
    number.round(maximumFractionDigits, roundingMode);
    return Writing(*this, number).run();
}
