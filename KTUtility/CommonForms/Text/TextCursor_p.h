#pragma once

// Private to the library. For forms that are read from left to right.

#include <QStringView>

#include <optional>

namespace KTPrivate {
/// A place in a folded text, which moves on over what it takes. What does not stand there is not
/// taken, and the place stays.
class TextCursor
{
public:
    explicit TextCursor(QStringView text, qsizetype position = 0) : _text(text), _position(position)
    {
    }

    QStringView text() const { return _text; }
    qsizetype position() const { return _position; }
    void moveTo(qsizetype position) { _position = position; }
    bool isAtEnd() const { return _position >= _text.size(); }

    /// The unit some places ahead; 0 behind the end.
    char16_t unit(qsizetype ahead = 0) const
    {
        const qsizetype at = _position + ahead;
        return at < _text.size() ? _text[at].unicode() : char16_t(0);
    }
    bool isDigit(qsizetype ahead = 0) const { return unit(ahead) >= u'0' && unit(ahead) <= u'9'; }
    /// Whether a small Latin letter stands there.
    bool isLetter(qsizetype ahead = 0) const { return unit(ahead) >= u'a' && unit(ahead) <= u'z'; }

    /// How many digits stand here.
    qsizetype digits() const
    {
        qsizetype count = 0;
        while (isDigit(count))
            ++count;
        return count;
    }
    /// How many small Latin letters stand here.
    qsizetype letters() const
    {
        qsizetype count = 0;
        while (isLetter(count))
            ++count;
        return count;
    }

    bool take(char16_t sought)
    {
        const bool isHere = sought != 0 && unit() == sought;
        _position += isHere ? 1 : 0;
        return isHere;
    }
    bool take(QStringView sought)
    {
        const bool isHere = _text.sliced(qMin(_position, _text.size())).startsWith(sought);
        _position += isHere ? sought.size() : 0;
        return isHere;
    }

    /// The number of the next \a count digits, at most nine; more may follow them.
    std::optional<int> takeDigits(qsizetype count)
    {
        int number = 0;
        for (qsizetype index = 0; index < count; ++index) {
            if (!isDigit(index))
                return std::nullopt;
            number = number * 10 + (unit(index) - u'0');
        }
        _position += count;
        return number;
    }
    /// The number of all digits that stand here, which have to be so many.
    std::optional<int> takeNumber(qsizetype least, qsizetype most)
    {
        const qsizetype count = digits();
        return count >= least && count <= most ? takeDigits(count) : std::nullopt;
    }

private:
    QStringView _text;
    qsizetype _position;
};
} // namespace KTPrivate
