#include "NumberGrammar_p.h"

#include "Count_p.h"

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
constexpr char16_t ArabicPercent = u'\u066A';

class TypedNumberReader
{
public:
    TypedNumberReader(const FoldedText &text, const NumberSigns &signs, NumberGrammar::Kind kind)
        : _text(text), _folded(text.text()), _signs(signs), _kind(kind)
    {
    }

    TypedDecimal read()
    {
        _isInParentheses = take(u'(');
        readSignsBefore();
        _count = Count::at(_folded, _at, _signs);
        if (_count.kind == Count::Kind::None)
            return {};
        if (_count.kind == Count::Kind::Refused)
            return TypedDecimal::refused(_count.reason);
        _at = _count.end;
        if (_count.kind == Count::Kind::Numeral)
            readExponent();
        readSignsBehind();
        if (_isInParentheses) {
            take(u' ');
            if (!take(u')'))
                return {};
        }
        if (_at < _folded.size())
            return {};
        if (isPercentSignWrong())
            return TypedDecimal::refused(u"A percentage does not belong into this field."_s);
        if (_isInParentheses && _signAt >= 0 && !_isNegative)
            return {};
        _isNegative |= _isInParentheses;
        return result();
    }

private:
    bool take(char16_t unit)
    {
        const bool isHere = _at < _folded.size() && _folded[_at] == unit;
        _at += isHere;
        return isHere;
    }

    void readSignsBefore()
    {
        takePercent();
        readSign(true);
        takePercent();
    }

    void readSignsBehind()
    {
        takePercent();
        readSign(false);
        takePercent();
    }

    void readSign(bool isBefore)
    {
        const qsizetype begin = _at;
        take(u' ');
        const qsizetype sign = _at;
        if (_signAt < 0 && !(!isBefore && isBehindPoint()) &&
            (take(u'-') || (isBefore && take(u'+')))) {
            _signAt = sign;
            _isNegative = _folded[sign] == u'-';
            if (isBefore)
                take(u' ');
        } else {
            _at = isBefore ? sign : begin;
        }
    }

    /// "5.-" has no cents; it is not negative.
    bool isBehindPoint() const { return QStringView(u".,").contains(_folded[_at - 1]); }

    void takePercent()
    {
        const qsizetype begin = _at;
        take(u' ');
        const qsizetype sign = _at;
        if (_percentAt < 0 && (take(u'%') || take(ArabicPercent))) {
            _percentAt = sign;
            take(u' ');
        } else {
            _at = begin;
        }
    }

    bool isPercentSignWrong() const
    {
        return _percentAt >= 0 && _kind != NumberGrammar::Kind::Percent;
    }

    bool takeExponentSign()
    {
        for (const QStringView symbol : {QStringView(_signs.exponent), QStringView(u"e")}) {
            if (!symbol.isEmpty() && _folded.sliced(_at).startsWith(symbol)) {
                _at += symbol.size();
                return true;
            }
        }
        return false;
    }

    /// Of at most three digits; more are out of range.
    void readExponent()
    {
        constexpr qsizetype MaximumDigits = 4;
        const qsizetype begin = _at;
        if (!takeExponentSign())
            return;
        const bool isNegative = take(u'-');
        if (!isNegative)
            take(u'+');
        const qsizetype digits = _at;
        int exponent = 0;
        while (_at < _folded.size() && _folded[_at] >= u'0' && _folded[_at] <= u'9' &&
               _at - digits < MaximumDigits)
            exponent = exponent * 10 + (_folded[_at++].unicode() - u'0');
        if (_at == digits) {
            _at = begin;
            return;
        }
        _exponentAt = begin;
        _exponentEnd = _at;
        _exponent = isNegative ? -exponent : exponent;
    }

    NSDecimalNumber scaled(const NSDecimalNumber &value) const
    {
        const int power = _exponent - (_kind == NumberGrammar::Kind::Percent ? 2 : 0);
        const NSDecimalNumber result =
            power ? value.decimalNumberByMultiplyingByPowerOf10(short(power), exactDecimals())
                  : value;
        return _isNegative ? result.decimalNumberByNegating() : result;
    }

    QString form() const
    {
        if (_count.kind == Count::Kind::Fraction)
            return u"common.fraction"_s;
        if (_kind == NumberGrammar::Kind::Percent)
            return u"common.percent"_s;
        if (_exponentAt >= 0)
            return u"common.exponent"_s;
        return _count.numeral.isOwn && (_signAt < 0 || _signAt < _count.numeral.begin)
                   ? u"number"_s
                   : u"common.number"_s;
    }

    TypedDecimal result() const
    {
        TypedDecimal typed{TypedDecimal::Outcome::Read, scaled(_count.value), {}, {}, {}};
        if (typed.value.isNaN())
            return TypedDecimal::refused(u"The number is too large."_s);
        typed.reading.form = form();
        typed.reading.parts = parts();
        if (_count.kind == Count::Kind::Numeral && _count.numeral.isTwofold) {
            typed.reading.alternative = QVariant::fromValue(scaled(_count.numeral.otherValue()));
            typed.reading.alternativeForm = u"common.number"_s;
        }
        return typed;
    }

    QList<KTReadingPart> parts() const
    {
        QList<KTReadingPart> parts;
        _count.addParts(_text, &parts);
        if (_exponentAt >= 0) {
            parts.append(partOf(_text, _exponentAt, _exponentEnd, u"exponent"_s,
                                QString::number(_exponent)));
        }
        if (_isInParentheses)
            addSign(&parts, 0, u"minusSign"_s, u"-"_s);
        addSign(&parts, _signAt, _isNegative ? u"minusSign"_s : u"plusSign"_s,
                _isNegative ? u"-"_s : u"+"_s);
        addSign(&parts, _percentAt, u"percentSign"_s, u"%"_s);
        return parts;
    }

    /// In its place among the others.
    void addSign(QList<KTReadingPart> *parts, qsizetype index, const QString &role,
                 const QString &meaning) const
    {
        if (index < 0)
            return;
        const KTReadingPart sign = partOf(_text, index, index + 1, role, meaning);
        const auto place =
            std::find_if(parts->begin(), parts->end(), [&](const KTReadingPart &part) {
                return part.range.location > sign.range.location;
            });
        parts->insert(place, sign);
    }

    const FoldedText &_text;
    const QStringView _folded;
    const NumberSigns &_signs;
    const NumberGrammar::Kind _kind;
    qsizetype _at = 0;
    Count _count;
    bool _isInParentheses = false;
    bool _isNegative = false;
    qsizetype _signAt = -1;
    qsizetype _percentAt = -1;
    qsizetype _exponentAt = -1;
    qsizetype _exponentEnd = -1;
    int _exponent = 0;
};
} // namespace

TypedDecimal NumberGrammar::read(const FoldedText &text, const NumberSigns &signs, Kind kind)
{
    return TypedNumberReader(text, signs, kind).read();
}
