#include "MoneyGrammar_p.h"

#include "Count_p.h"

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
class MoneyReader
{
public:
    MoneyReader(const FoldedText &text, const MoneyField &field)
        : _text(text)
        , _folded(text.text())
        , _field(field)
        , _signs(NumberSigns::ofMoney(field.locale, field.code))
        , _words(MoneyWords::of(field.locale, field.code))
        , _symbol(FoldedText::folded(field.symbol))
    {
    }

    TypedDecimal read()
    {
        // "($5)", "$(5)" or "(5) $".
        _openedAt = takeOpening();
        skipWords();
        if (_openedAt < 0)
            _openedAt = takeOpening();
        take(u' ');
        if (!readNumber())
            return isUnknown() ? unknown() : TypedDecimal();
        readTail();
        const bool isClosed = _openedAt >= 0 && takeClosing();
        skipWords();
        if (_openedAt >= 0 && !isClosed && !take(u')'))
            return {};
        if (_at < _folded.size())
            return unknown();
        return _openedAt >= 0 && _signAt >= 0 ? TypedDecimal() : result();
    }

private:
    bool isAt(char16_t unit) const { return _at < _folded.size() && _folded[_at] == unit; }

    bool take(char16_t unit)
    {
        const bool isHere = isAt(unit);
        _at += isHere;
        return isHere;
    }

    /// Where the parenthesis stands; -1 if there is none here.
    qsizetype takeOpening()
    {
        const qsizetype begin = _at;
        return take(u'(') ? begin : -1;
    }

    /// Behind a blank or none.
    bool takeClosing()
    {
        const qsizetype begin = _at;
        take(u' ');
        const bool isClosed = take(u')');
        if (!isClosed)
            _at = begin;
        return isClosed;
    }

    bool isUnknown() const { return _at < _folded.size(); }

    /// Names, at most one sign of negative amounts, and blanks, as far as there are any.
    void skipWords()
    {
        while (take(u' ') || takeJoiner() || takeSign() || takeWord()) {
        }
    }

    /// The hyphen of "US-Dollar".
    bool takeJoiner()
    {
        const bool isJoiner = isAt(u'-') && _at > 0 && _folded[_at - 1].isLetter() &&
                              _at + 1 < _folded.size() && _folded[_at + 1].isLetter();
        _at += isJoiner;
        return isJoiner;
    }

    bool takeSign()
    {
        if (_signAt >= 0 || !(isAt(u'-') || (isAt(u'+') && !_count.end)))
            return false;
        _signAt = _at++;
        return true;
    }

    bool takeWord()
    {
        if (_at >= _folded.size() || !isWordEnd(_folded, _at))
            return false;
        if (isThousands())
            return false;
        if (!_symbol.isEmpty() && _folded.sliced(_at).startsWith(_symbol) &&
            isWordEnd(_folded, _at + _symbol.size()))
            return takeWord(_symbol.size(), _symbol != FoldedText::folded(_field.code));
        if (const auto match = _words->longestAt(_folded, _at); match.length > 0) {
            const auto is = [&match](MoneyWord word) {
                return std::find(match.meanings.begin(), match.meanings.end(), word) !=
                       match.meanings.end();
            };
            const bool isWhole =
                is(MoneyWord::Code) || is(MoneyWord::Sign) || is(MoneyWord::FullName);
            const bool isQualifier = is(MoneyWord::Qualifier) && match.meanings.size() == 1;
            return !isOfOthers(match.length, isWhole) &&
                   takeWord(match.length, !is(MoneyWord::Code), !isQualifier);
        }
        return !isOfOthers(0, false) && takeInflectedWord();
    }

    /// "5k" is five thousand, also where "K" is the sign of kwachas, kinas or kyats; but for "5 K"
    /// where the field itself shows that.
    bool isThousands() const
    {
        const bool isSign = _symbol == u"k" && _at > 0 && _folded[_at - 1] == u' ';
        return isAt(u'k') && _count.end > 0 && isWordEnd(_folded, _at + 1) && !isSign;
    }

    /// Whether the name of another currency stands here, not just a word of the field's: "5 Cuban
    /// pesos" are no convertible ones.
    bool isOfOthers(qsizetype ownLength, bool isWhole) const
    {
        const qsizetype length = otherCurrencyAt(_field.locale, _field.code, _folded, _at);
        return length > ownLength || (length > 0 && length == ownLength && !isWhole);
    }

    /// \param mayHaveStop "Rs.5", "S/.5": the full stop is the word's, not the number's.
    bool takeWord(qsizetype length, bool mayHaveStop, bool isName = true)
    {
        if (isName)
            _names.append({_at, length});
        _hasQualifier |= !isName;
        const QChar last = _folded[_at + length - 1];
        _at += length;
        if (mayHaveStop && (last.isLetter() || last.isMark() || last == u'/'))
            take(u'.');
        return true;
    }

    bool takeInflectedWord()
    {
        qsizetype end = _at;
        while (end < _folded.size() && (_folded[end].isLetter() || _folded[end].isMark()))
            ++end;
        const QStringView word = _folded.sliced(_at, end - _at);
        return !word.isEmpty() && _words->isInflectedName(word) &&
               currencyNamedIn(_field.locale, word).isNull() && takeWord(word.size(), true);
    }

    bool readNumber()
    {
        _count = Count::at(_folded, _at, *_signs);
        if (_count.kind == Count::Kind::None)
            return false;
        _at = _count.end;
        return true;
    }

    /// "5.–", "5,-" and "500/-" have nothing behind the point.
    void readTail()
    {
        const qsizetype begin = _at;
        const bool isBehindPoint =
            _at > _count.numeral.begin && QStringView(u".,").contains(_folded[_at - 1]);
        if (!_count.numeral.isInteger() ||
            !(isBehindPoint || take(u'.') || take(u',') || take(u'/')) || !take(u'-')) {
            _at = begin;
            return;
        }
        take(u'-');
    }

    /// Why a text with something else in it is no amount in this currency.
    TypedDecimal unknown() const
    {
        const QString other = currencyNamedIn(_field.locale, _folded);
        if (other.isNull() || other == _field.code)
            return {};
        return TypedDecimal::refused(u"The text names the currency %1; this field has %2."_s,
                                     {other, _field.code});
    }

    TypedDecimal result()
    {
        if (_count.kind == Count::Kind::Refused)
            return TypedDecimal::refused(_count.reason);
        if (_names.isEmpty() && _hasQualifier)
            return {};
        if (_openedAt >= 0)
            _signAt = _openedAt;
        TypedDecimal typed{TypedDecimal::Outcome::Read, withSign(_count.value), {}, {}, {}};
        const bool isCode =
            _names.size() == 1 && _folded.sliced(_names[0].location, _names[0].length)
                                          .compare(_field.code, Qt::CaseInsensitive) == 0;
        typed.reading.form = isCode ? u"iso4217"_s : u"common.money"_s;
        typed.reading.parts = parts();
        if (_count.kind == Count::Kind::Numeral && _count.numeral.isTwofold) {
            typed.reading.alternative = QVariant::fromValue(withSign(_count.numeral.otherValue()));
            typed.reading.alternativeForm = typed.reading.form;
        }
        return typed;
    }

    bool isNegative() const { return _signAt >= 0 && _folded[_signAt] != u'+'; }

    NSDecimalNumber withSign(const NSDecimalNumber &amount) const
    {
        return isNegative() ? amount.decimalNumberByNegating() : amount;
    }

    QList<KTReadingPart> parts() const
    {
        QList<KTReadingPart> parts;
        _count.addParts(_text, &parts);
        for (const NSRange &name : _names) {
            parts.append(partOf(_text, name.location, name.location + name.length, u"currency"_s,
                                _field.code));
        }
        if (_signAt >= 0) {
            parts.append(partOf(_text, _signAt, _signAt + 1,
                                isNegative() ? u"minusSign"_s : u"plusSign"_s,
                                isNegative() ? u"-"_s : u"+"_s));
        }
        std::stable_sort(parts.begin(), parts.end(), [](const auto &left, const auto &right) {
            return left.range.location < right.range.location;
        });
        return parts;
    }

    const FoldedText &_text;
    const QStringView _folded;
    const MoneyField &_field;
    const std::shared_ptr<const NumberSigns> _signs;
    const std::shared_ptr<const MoneyWords> _words;
    const QString _symbol;
    qsizetype _at = 0;
    Count _count;
    QVarLengthArray<NSRange, 4> _names;
    qsizetype _signAt = -1;
    bool _hasQualifier = false;
    qsizetype _openedAt = -1;
};
} // namespace

TypedDecimal MoneyGrammar::read(const FoldedText &text, const MoneyField &field)
{
    return MoneyReader(text, field).read();
}
